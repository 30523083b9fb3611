#pragma once

#include "imaging/pixels/row_reader.h"

#include <QByteArray>

#include <memory>

namespace quarlin {

/// Whether the bytes begin as a Windows or OS/2 bitmap does, with or without its file header.
bool isBmp(const QByteArray& bytes);

/// Opens a bitmap, which is decoded whole with its first row; throws `DecodeError`.
std::unique_ptr<RowReader> openBmp(const QByteArray& bytes);

}  // namespace quarlin

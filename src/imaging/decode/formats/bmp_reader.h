#pragma once

#include "imaging/pixels/row_reader.h"

#include <QByteArray>

#include <memory>

namespace quarlin {

/// Whether the bytes begin as a Windows bitmap does.
bool isBmp(const QByteArray& bytes);

/// Opens a Windows bitmap, which is decoded whole with its first row; throws `DecodeError`.
std::unique_ptr<RowReader> openBmp(const QByteArray& bytes);

}  // namespace quarlin

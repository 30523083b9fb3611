#pragma once

#include "imaging/pixels/row_reader.h"

#include <QByteArray>

#include <memory>

namespace quarlin {

/// Whether the bytes begin as a GIF file does.
bool isGif(const QByteArray& bytes);

/// Opens the first frame of a GIF file, which is decoded whole with its first row; throws `DecodeError`. The
/// canvas around it is transparent.
std::unique_ptr<RowReader> openGif(const QByteArray& bytes);

}  // namespace quarlin

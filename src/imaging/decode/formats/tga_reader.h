#pragma once

#include "imaging/pixels/row_reader.h"

#include <QByteArray>

#include <memory>

namespace quarlin {

/// Whether the bytes begin as a Targa file may. The format has no signature, only a header of which not every
/// value is possible, so it has to be tried after the formats that have one.
bool isTga(const QByteArray& bytes);

/// Opens a Targa file: gray, true color or with a palette, plain or run-length coded, of 8 to 32 bits per
/// pixel, from any corner. It is decoded whole with its first row. Throws `DecodeError`.
std::unique_ptr<RowReader> openTga(const QByteArray& bytes);

}  // namespace quarlin

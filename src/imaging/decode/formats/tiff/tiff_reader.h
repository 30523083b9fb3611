#pragma once

#include "imaging/pixels/row_reader.h"

#include <QByteArray>

#include <memory>

namespace quarlin {

/// Whether the bytes begin as a TIFF file does.
bool isTiff(const QByteArray& bytes);

/// Opens the first page of a TIFF file; throws `DecodeError`.
std::unique_ptr<RowReader> openTiff(const QByteArray& bytes);

}  // namespace quarlin

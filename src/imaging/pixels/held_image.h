#pragma once

#include "imaging/pixels/row_reader.h"

#include <QImage>

namespace quarlin {

/// Reads the rows that are left into an image to be kept: in `QImage::Format_Grayscale8`, a quarter of the
/// size, if every pixel is gray and opaque, else in `pixelFormat`. Throws what the reader throws, and
/// `std::bad_alloc`.
QImage readHeldImage(RowReader& reader);

}  // namespace quarlin

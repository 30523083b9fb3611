#pragma once

#include "imaging/pixels/pixel_image.h"

#include <QByteArray>

namespace quarlin::bench {

/// An opaque image as a PNG file with 1 (gray, the red channel), 3 (RGB) or 4 samples per pixel, written by
/// libpng with its defaults: level 6, a filter chosen for each row.
QByteArray writtenByLibpng(const PixelImage& image, int samples);

}  // namespace quarlin::bench

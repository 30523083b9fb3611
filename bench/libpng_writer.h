#pragma once

#include "imaging/pixels/pixel_image.h"

#include <QByteArray>

namespace quarlin::bench {

/// An opaque image as a PNG file of 1 (gray, the red channel), 3 (RGB) or 4 samples a pixel, compressed by
/// libpng in its own way: level 6, filters chosen row by row.
QByteArray writtenByLibpng(const PixelImage& image, int samples);

}  // namespace quarlin::bench

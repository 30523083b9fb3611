#pragma once

#include <QByteArray>
#include <QImage>

namespace quarlin {

/// Decodes the bytes of an image file, told by what they hold, never by a name: PNG, JPEG, TIFF, BMP, GIF,
/// HEIC, WebP and AVIF; of several images the first. Embedded color profiles are converted to sRGB,
/// orientation tags ignored, 16 bits rounded to 8, colors then premultiplied with rounding. Gives an image
/// of `pixelFormat`, or a null image when the bytes are no whole, intact image of at most `maximumPixels`
/// pixels.
QImage decodeImage(const QByteArray& bytes);

}  // namespace quarlin

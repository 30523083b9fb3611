#pragma once

#include <QByteArray>
#include <QImage>

namespace quarlin {

/// Decodes PNG, JPEG, TIFF, GIF, HEIC, WebP and AVIF to `pixelFormat` through libvips; a null image for all
/// else.
QImage decodeWithVips(QByteArray bytes);

}  // namespace quarlin

#pragma once

#include "imaging/pixels/pixel_image.h"

#include <QImage>
#include <QUrl>

namespace quarlin {

/// Whether size and byte count of `image` describe an image that can be held.
bool isImage(const PixelImage& image);

/// The image for the screen. Throws `cannotCreatePNG(urlForError)` when size and byte count do not describe
/// an image; without a location it names "Preview.png".
QImage onScreenImage(const PixelImage& image, const QUrl& urlForError);
QImage onScreenImage(const PixelImage& image);

}  // namespace quarlin

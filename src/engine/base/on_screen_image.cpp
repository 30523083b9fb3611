#include "engine/base/on_screen_image.h"

#include "engine/base/texture_processor_error.h"
#include "imaging/pixels/image_view.h"

#include <algorithm>

namespace quarlin {

using namespace Qt::StringLiterals;

bool isImage(const PixelImage& image) {
    return isUsableSize(image.width, image.height) &&
           image.pixels.size() == static_cast<std::size_t>(image.width * image.height * bytesPerPixel);
}

QImage onScreenImage(const PixelImage& image, const QUrl& urlForError) {
    QImage result = isImage(image)
                        ? QImage(static_cast<int>(image.width), static_cast<int>(image.height), pixelFormat)
                        : QImage();
    if (result.isNull()) {
        throw TextureProcessorError::cannotCreatePNG(urlForError);
    }
    std::copy(image.pixels.begin(), image.pixels.end(), result.bits());
    return result;
}

QImage onScreenImage(const PixelImage& image) {
    return onScreenImage(image, QUrl::fromLocalFile(u"Preview.png"_s));
}

}  // namespace quarlin

#include "engine/base/rendered_texture.h"

#include "engine/base/imaging_errors.h"
#include "engine/base/texture_processor_error.h"
#include "engine/base/texture_source.h"
#include "imaging/decode/image_file.h"

#include <utility>

namespace quarlin {

namespace {

QImage imageOf(std::unique_ptr<RowReader> rows, PixelSize size) {
    rows = scaledRows(std::move(rows), size);
    QImage image(static_cast<int>(size.width), static_cast<int>(size.height), pixelFormat);
    if (image.isNull()) {
        throw TextureProcessorError::cannotCreateBitmap();
    }
    rows->read(size.height, image.bits());
    return image;
}

}  // namespace

DecodedFile decodeFile(const QUrl& url) {
    ImageFile file = reportingEngineErrors(FileKind::image, [&] { return readImageFile(url); });
    return {std::move(file.image), file.file->stamp(), file.convertedFrom};
}

QImage renderFile(const QUrl& url, PixelSize size) {
    return imageOf(openFileRows(openInputFile(url), ColorHandling::convert).rows, size);
}

QImage renderTexture(const TextureAsset& asset, PixelSize size) {
    const TextureSource source(asset);
    const QImage loaded = source.image();
    const bool hasSize = loaded.width() == size.width && loaded.height() == size.height;
    return hasSize && !loaded.isNull() ? loaded : imageOf(source.open(size), size);
}

}  // namespace quarlin

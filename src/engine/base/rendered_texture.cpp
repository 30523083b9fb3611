#include "engine/base/rendered_texture.h"

#include "engine/base/imaging_errors.h"
#include "engine/base/texture_processor_error.h"
#include "imaging/decode/image_file.h"
#include "imaging/files/file_bytes.h"
#include "imaging/pixels/resample.h"

#include <utility>

namespace quarlin {

namespace {

QImage stretched(QImage image, std::int64_t width, std::int64_t height) {
    if (!isUsableSize(width, height)) {
        throw TextureProcessorError::cannotCreateBitmap();
    }
    if (image.width() == width && image.height() == height) {
        return image;
    }
    QImage result(static_cast<int>(width), static_cast<int>(height), pixelFormat);
    if (result.isNull()) {
        throw TextureProcessorError::cannotCreateBitmap();
    }
    resample(ImageView(image), width, height,
             {result.bits(), static_cast<std::size_t>(result.sizeInBytes())});
    return result;
}

}  // namespace

DecodedFile decodeFile(const QUrl& url, std::optional<TextureChannel> channel) {
    const auto index = channel ? std::optional(static_cast<int>(*channel)) : std::nullopt;
    ImageFile file = reportingEngineErrors(FileKind::image, [&] { return readImageFile(url, index); });
    return {std::move(file.image), file.content.stamp};
}

QImage renderFile(const QUrl& url, std::int64_t width, std::int64_t height,
                  std::optional<TextureChannel> channel) {
    return stretched(decodeFile(url, channel).image, width, height);
}

QImage renderTexture(const TextureAsset& asset, std::int64_t width, std::int64_t height) {
    if (asset.decodedFrom && fileStamp(asset.url) == asset.decodedFrom) {
        return stretched(asset.preview, width, height);
    }
    return renderFile(asset.url, width, height, asset.channel);
}

}  // namespace quarlin

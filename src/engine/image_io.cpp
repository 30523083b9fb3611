#include "engine/imaging_errors.h"
#include "engine/rendered_texture.h"
#include "engine/texture_processor.h"
#include "imaging/files/file_names.h"
#include "imaging/pixels/image_view.h"
#include "imaging/png/png_file.h"

#include <algorithm>

namespace quarlin {

using namespace Qt::StringLiterals;

namespace {

PixelImage toPixelImage(const QImage& image) {
    return {image.width(), image.height(), {image.constBits(), image.constBits() + image.sizeInBytes()}};
}

/// Whether size and byte count describe an image.
bool isImage(const PixelImage& image) {
    return isUsableSize(image.width, image.height) &&
           image.pixels.size() == static_cast<std::size_t>(image.width * image.height * bytesPerPixel);
}

}  // namespace

TextureAsset TextureProcessor::loadAsset(const QUrl& url) const {
    DecodedFile file = decodeFile(url);
    const QSize size = file.image.size();
    TextureAsset asset(url, lastPathComponent(url), size.width(), size.height(), std::move(file.image));
    asset.decodedFrom = file.stamp;
    return asset;
}

QImage TextureProcessor::loadCGImage(const QUrl& url) const { return decodeFile(url).image; }

PixelImage TextureProcessor::renderImage(const QUrl& url, std::int64_t width, std::int64_t height) const {
    return toPixelImage(renderFile(url, width, height));
}

PixelImage TextureProcessor::renderImage(const TextureAsset& asset, std::int64_t width,
                                         std::int64_t height) const {
    return toPixelImage(renderTexture(asset, width, height));
}

QImage TextureProcessor::makeCGImage(const PixelImage& image, const QUrl& urlForError) const {
    QImage result = isImage(image)
                        ? QImage(static_cast<int>(image.width), static_cast<int>(image.height), pixelFormat)
                        : QImage();
    if (result.isNull()) {
        throw TextureProcessorError::cannotCreatePNG(urlForError);
    }
    std::copy(image.pixels.begin(), image.pixels.end(), result.bits());
    return result;
}

QImage TextureProcessor::makeNSImage(const PixelImage& image) const {
    return makeCGImage(image, QUrl::fromLocalFile(u"Preview.png"_s));
}

void TextureProcessor::writePNG(const PixelImage& image, const QUrl& url) const {
    if (!isImage(image)) {
        throw TextureProcessorError::cannotCreatePNG(url);
    }
    PngFile file(image.width, image.height, url);
    const RowStrips strips = file.strips();
    forEachInParallel(strips.count(), [&](std::int64_t strip) {
        file.encodeStrip(strip, ImageView(image).row(strips[strip].first));
    });
    if (!file.commitDraft()) {
        reportingEngineErrors(FileKind::image, [&] { file.write(); });
    }
}

}  // namespace quarlin

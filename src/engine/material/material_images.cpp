#include "engine/base/output_size.h"
#include "engine/base/texture_processor_error.h"
#include "engine/material/material.h"
#include "engine/material/material_rows.h"
#include "engine/material/material_sources.h"
#include "imaging/base/outcome.h"
#include "imaging/base/parallel.h"
#include "imaging/base/pixel_size.h"
#include "imaging/base/row_strips.h"
#include "imaging/decode/image_decoder.h"
#include "imaging/pixels/image_view.h"
#include "imaging/pixels/pixel_image.h"
#include "model/conversion_settings.h"
#include "model/material_set.h"
#include "model/previews.h"
#include "model/texture_asset.h"
#include "model/texture_slot_kind.h"

#include <array>

namespace quarlin {

OutputPreviews buildMaterialPreviews(const TextureMap& textures, const ConversionSettings& settings,
                                     std::int64_t longestSide) {
    if (textures.empty()) {
        return {};
    }
    const PixelSize size = previewSize(resolvedOutputSize(textures, settings), longestSide);
    const MaterialSources sources(textures);

    constexpr auto images = allCases<MaterialImage>();
    std::array<Outcome<QImage>, images.size()> made;
    forEachInParallel(static_cast<std::int64_t>(images.size()), [&](std::int64_t index) {
        const auto image = static_cast<std::size_t>(index);
        made[image] = Outcome<QImage>::of([&] {
            const auto rows = openMaterialImage(images[image], sources, settings, size);
            return rows ? readImage(*rows) : QImage();
        });
    });
    OutputPreviews previews;
    for (std::size_t image = 0; image < images.size(); ++image) {
        if (const QImage& preview = made[image].value(); !preview.isNull()) {
            previews.emplace(images[image], preview);
        }
    }
    return previews;
}

QImage makeMaterialImage(MaterialImage image, const TextureMap& textures, const ConversionSettings& settings,
                         const RowProgress& progress) {
    if (textures.empty()) {
        return {};
    }
    const PixelSize size = resolvedOutputSize(textures, settings);
    const MaterialSources sources(textures);
    if (image == MaterialImage::baseColor) {
        if (QImage loaded = sources.loadedImage(TextureSlotKind::baseColor, size); !loaded.isNull()) {
            return loaded;
        }
    }
    const auto rows = openMaterialImage(image, sources, settings, size);
    if (!rows) {
        return {};
    }
    QImage made(static_cast<int>(size.width), static_cast<int>(size.height), pixelFormat);
    if (made.isNull()) {
        throw TextureProcessorError::cannotCreateBitmap();
    }
    // Enough rows for all cores, few enough to stop soon.
    constexpr std::int64_t rowsPerStrip = 128;
    const RowStrips strips(size.height, rowsPerStrip);
    std::uint8_t* pixels = made.bits();
    for (std::int64_t strip = 0; strip < strips.count(); ++strip) {
        rows->read(strips[strip].count, pixels + strips[strip].first * rows->bytesPerRow());
        if (!progress(strips[strip].end())) {
            return {};
        }
    }
    return made;
}

PixelImage makeORM(const TextureMap& textures, const ConversionSettings& settings, std::int64_t width,
                   std::int64_t height) {
    const MaterialSources sources(textures);
    const auto rows = openMaterialImage(MaterialImage::orm, sources, settings, {width, height});
    if (!isUsableSize(width, height)) {
        throw TextureProcessorError::cannotCreateBitmap();
    }
    PixelImage image{width, height, PixelBuffer(pixelCount(width, height) * bytesPerPixel)};
    rows->read(height, image.pixels.data());
    return image;
}

}  // namespace quarlin

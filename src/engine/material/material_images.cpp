#include "engine/base/output_size.h"
#include "engine/base/texture_processor_error.h"
#include "engine/material/material.h"
#include "engine/material/material_rows.h"
#include "engine/material/material_sources.h"
#include "imaging/base/outcome.h"
#include "imaging/base/parallel.h"
#include "imaging/base/pixel_size.h"
#include "imaging/decode/image_decoder.h"
#include "imaging/pixels/pixel_image.h"
#include "model/conversion_settings.h"
#include "model/material_set.h"
#include "model/previews.h"
#include "model/texture_asset.h"
#include "model/texture_slot_kind.h"

#include <array>

namespace quarlin {

OutputPreviews buildMaterialPreviews(const TextureMap& textures, const ConversionSettings& settings) {
    if (textures.empty()) {
        return {};
    }
    const auto base = textures.find(TextureSlotKind::baseColor);
    const TextureAsset& reference = base != textures.end() ? base->second : textures.begin()->second;
    const PixelSize size = previewSize(resolvedOutputSize(reference, settings));
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

#include "engine/base/generated_maps.h"
#include "engine/base/on_screen_image.h"
#include "engine/base/output_size.h"
#include "engine/base/rendered_texture.h"
#include "engine/base/texture_processor_error.h"
#include "engine/generator/generated_strips.h"
#include "engine/generator/generator.h"
#include "imaging/base/pixel_size.h"
#include "model/generated_set.h"
#include "model/normal_generator_settings.h"
#include "model/previews.h"
#include "model/texture_asset.h"

namespace quarlin {

NormalPreviews buildGeneratedPreviews(const std::optional<TextureAsset>& source,
                                      const NormalGeneratorSettings& settings, std::int64_t longestSide) {
    if (!source) {
        return {};
    }
    const PixelSize size = previewSize(
        resolvedOutputSize(source->pixelWidth, source->pixelHeight, settings.outputResolution), longestSide);
    const QImage rendered = renderTexture(*source, size);
    const NormalOutputs outputs = generateOutputs(ImageView(rendered), settings);
    NormalPreviews previews;
    for (const GeneratedMap map : allCases<GeneratedMap>()) {
        previews.emplace(map, onScreenImage(outputs[map]));
    }
    return previews;
}

QImage makeGeneratedMap(GeneratedMap map, const TextureAsset& source, const NormalGeneratorSettings& settings,
                        const RowProgress& progress) {
    const PixelSize size =
        resolvedOutputSize(source.pixelWidth, source.pixelHeight, settings.outputResolution);
    QImage rendered = renderTexture(source, size);
    if (map == GeneratedMap::source) {
        return rendered;
    }
    QImage made(rendered.size(), pixelFormat);
    if (made.isNull()) {
        throw TextureProcessorError::cannotCreateBitmap();
    }
    const bool isWhole = generateMap(map, ImageView(rendered), settings, made.bits(), progress);
    return isWhole ? made : QImage();
}

}  // namespace quarlin

#include "engine/generator/generated_strips.h"
#include "engine/rendered_texture.h"
#include "engine/texture_processor.h"

namespace quarlin {

NormalPreviews TextureProcessor::buildNormalPreviews(const std::optional<TextureAsset>& source,
                                                     const NormalGeneratorSettings& settings) const {
    if (!source) {
        return {};
    }
    const PixelSize size =
        previewSize(resolvedOutputSize(source->pixelWidth, source->pixelHeight, settings.outputResolution));
    const QImage rendered = renderTexture(*source, size.width, size.height);
    const NormalOutputs outputs = generateOutputs(ImageView(rendered), settings);
    return {{NormalPreviewKind::source, makeNSImage(outputs.source)},
            {NormalPreviewKind::height, makeNSImage(outputs.height)},
            {NormalPreviewKind::normal, makeNSImage(outputs.normal)},
            {NormalPreviewKind::roughness, makeNSImage(outputs.roughness)},
            {NormalPreviewKind::gloss, makeNSImage(outputs.gloss)},
            {NormalPreviewKind::metallic, makeNSImage(outputs.metallic)},
            {NormalPreviewKind::occlusion, makeNSImage(outputs.occlusion)},
            {NormalPreviewKind::orm, makeNSImage(outputs.orm)}};
}

}  // namespace quarlin

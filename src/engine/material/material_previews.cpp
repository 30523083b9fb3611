#include "engine/base/output_size.h"
#include "engine/material/material.h"
#include "engine/material/material_inputs.h"
#include "imaging/base/pixel_size.h"
#include "model/conversion_settings.h"
#include "model/material_set.h"
#include "model/previews.h"
#include "model/texture_asset.h"
#include "model/texture_slot_kind.h"

namespace quarlin {

OutputPreviews buildMaterialPreviews(const TextureMap& textures, const ConversionSettings& settings) {
    if (textures.empty()) {
        return {};
    }
    const auto base = textures.find(TextureSlotKind::baseColor);
    const TextureAsset& reference = base != textures.end() ? base->second : textures.begin()->second;
    const PixelSize size = previewSize(resolvedOutputSize(reference, settings));
    const auto slots = allCases<TextureSlotKind>();
    const MaterialInputs inputs(textures, {slots.begin(), slots.end()}, size);

    OutputPreviews previews;
    if (const QImage* baseColor = inputs.texture(TextureSlotKind::baseColor)) {
        previews.emplace(OutputPreviewKind::baseColor, *baseColor);
    }
    previews.emplace(OutputPreviewKind::orm, imageOf(size, ormRows(inputs, settings)));
    if (const QImage* normal = inputs.texture(TextureSlotKind::normal)) {
        previews.emplace(OutputPreviewKind::normal, imageOf(size, conditionedNormalRows(*normal, settings)));
    }
    return previews;
}

}  // namespace quarlin

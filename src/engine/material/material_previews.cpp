#include "engine/material/material_inputs.h"
#include "engine/texture_processor.h"

#include <algorithm>

namespace quarlin {

PixelSize TextureProcessor::previewSize(PixelSize size) {
    constexpr std::int64_t longestSide = 512;
    const std::int64_t longest = std::max(size.width, size.height);
    if (longest <= longestSide) {
        return size;
    }
    const double scale = static_cast<double>(longestSide) / static_cast<double>(longest);
    const auto scaled = [&](std::int64_t side) {
        return std::max<std::int64_t>(1, static_cast<std::int64_t>(static_cast<double>(side) * scale));
    };
    return {scaled(size.width), scaled(size.height)};
}

OutputPreviews TextureProcessor::buildPreviews(const TextureMap& textures,
                                               const ConversionSettings& settings) const {
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

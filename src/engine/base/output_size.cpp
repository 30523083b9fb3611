#include "engine/base/output_size.h"
#include "model/output_resolution.h"

#include <algorithm>

namespace quarlin {

PixelSize resolvedOutputSize(const TextureAsset& base, const ConversionSettings& settings) {
    return resolvedOutputSize(base.pixelWidth, base.pixelHeight, settings.outputResolution);
}

PixelSize resolvedOutputSize(std::int64_t baseWidth, std::int64_t baseHeight, OutputResolution resolution) {
    if (const auto edge = fixedPixels(resolution)) {
        return {*edge, *edge};
    }
    return {baseWidth, baseHeight};
}

PixelSize resolvedOutputSize(const TextureMap& textures, const ConversionSettings& settings) {
    const auto base = textures.find(TextureSlotKind::baseColor);
    return resolvedOutputSize((base != textures.end() ? base : textures.begin())->second, settings);
}

PixelSize previewSize(PixelSize size, std::int64_t longestSide) {
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

}  // namespace quarlin

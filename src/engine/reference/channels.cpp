#include "engine/texture_processor.h"
#include "imaging/pixels/luminance.h"

#include <algorithm>
#include <cmath>

namespace quarlin {

std::uint8_t TextureProcessor::byteFromUnit(double value) {
    const auto rounded = static_cast<std::int64_t>(std::round(value * 255.0));
    return static_cast<std::uint8_t>(std::max<std::int64_t>(0, std::min<std::int64_t>(255, rounded)));
}

std::uint8_t TextureProcessor::grayscale(const PixelImage* image, std::size_t offset, std::uint8_t fallback,
                                         bool inverted) {
    if (image == nullptr) {
        return fallback;
    }
    const std::uint8_t value = luminanceByte(image->pixels.data() + offset);
    return inverted ? static_cast<std::uint8_t>(255 - value) : value;
}

void TextureProcessor::writeGray(std::uint8_t value, std::span<std::uint8_t> pixels, std::size_t offset) {
    pixels[offset] = value;
    pixels[offset + 1] = value;
    pixels[offset + 2] = value;
    pixels[offset + 3] = 255;
}

double TextureProcessor::clamp(double value, double min, double max) {
    return std::max(min, std::min(max, value));
}

PixelSize TextureProcessor::resolvedOutputSize(const TextureAsset& base, const ConversionSettings& settings) {
    return resolvedOutputSize(base.pixelWidth, base.pixelHeight, settings.outputResolution);
}

PixelSize TextureProcessor::resolvedOutputSize(std::int64_t baseWidth, std::int64_t baseHeight,
                                               OutputResolution resolution) {
    if (const auto edge = fixedPixels(resolution)) {
        return {*edge, *edge};
    }
    return {baseWidth, baseHeight};
}

}  // namespace quarlin

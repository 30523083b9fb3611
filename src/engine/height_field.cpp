#include "plain_generator.h"
#include "texture_processor.h"

#include <algorithm>

namespace quarlin {

HeightField TextureProcessor::smoothedHeightValues(const PixelImage& image,
                                                   const NormalGeneratorSettings& settings) {
    return plain::smoothedHeightValues(image, settings);
}

HeightField TextureProcessor::boxBlur(std::span<const double> values, std::int64_t width, std::int64_t height) {
    return plain::boxBlur(values, width, height);
}

PixelImage TextureProcessor::heightImage(std::span<const double> values, std::int64_t width,
                                         std::int64_t height) {
    return plain::heightImage(values, width, height);
}

double TextureProcessor::sampleHeight(std::span<const double> values, std::int64_t width, std::int64_t height,
                                      std::int64_t x, std::int64_t y) {
    const std::int64_t column = std::max<std::int64_t>(0, std::min(width - 1, x));
    const std::int64_t row = std::max<std::int64_t>(0, std::min(height - 1, y));
    return values[static_cast<std::size_t>(row * width + column)];
}

}  // namespace quarlin

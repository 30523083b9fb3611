#include "plain_generator.h"
#include "texture_processor.h"

#include <algorithm>
#include <cmath>

namespace quarlin {

PixelImage TextureProcessor::normalImage(std::span<const double> values, std::int64_t width, std::int64_t height,
                                         const NormalGeneratorSettings& settings) {
    return plain::normalImage(values, width, height, settings);
}

std::tuple<double, double, double> TextureProcessor::normalized(double x, double y, double z) {
    const double length = std::sqrt((x * x + y * y) + z * z);
    const double divisor = std::max(0.0001, length);
    return {x / divisor, y / divisor, z / divisor};
}

std::uint8_t TextureProcessor::byteFromSignedUnit(double value) { return byteFromUnit(value * 0.5 + 0.5); }

}  // namespace quarlin

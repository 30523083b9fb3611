#include "plain_generator.h"
#include "texture_processor.h"

#include <algorithm>
#include <cmath>

namespace quarlin {

GeneratedSurfaceMaps TextureProcessor::generatedSurfaceMaps(const PixelImage& source,
                                                            std::span<const double> heightValues,
                                                            const NormalGeneratorSettings& settings) {
    return plain::generatedSurfaceMaps(source, heightValues, settings);
}

double TextureProcessor::localHeightContrast(std::span<const double> values, std::int64_t width,
                                             std::int64_t height, std::int64_t x, std::int64_t y) {
    const double centre = sampleHeight(values, width, height, x, y);
    double largest = 0.0;
    for (std::int64_t yy = std::max<std::int64_t>(0, y - 1); yy <= std::min(height - 1, y + 1); ++yy) {
        for (std::int64_t xx = std::max<std::int64_t>(0, x - 1); xx <= std::min(width - 1, x + 1); ++xx) {
            largest = std::max(largest, std::abs(centre - values[static_cast<std::size_t>(yy * width + xx)]));
        }
    }
    return clamp(largest * 6.0, 0, 1);
}

double TextureProcessor::smoothStep(double edge0, double edge1, double value) {
    if (edge0 == edge1) {
        return value >= edge0 ? 1.0 : 0.0;
    }
    const double t = clamp((value - edge0) / (edge1 - edge0), 0, 1);
    return t * t * (3.0 - 2.0 * t);
}

}  // namespace quarlin

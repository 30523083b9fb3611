#include "engine/reference/normal_synthesis.h"

#include "engine/base/channels.h"
#include "engine/base/formulas.h"
#include "engine/base/generator_factors.h"
#include "engine/reference/height_field.h"

#include <algorithm>
#include <cmath>

namespace quarlin::reference {

PixelImage normalImage(std::span<const double> values, std::int64_t width, std::int64_t height,
                       const NormalGeneratorSettings& settings) {
    PixelImage image = opaqueWhite(width, height);
    const GeneratorFactors factors(settings);
    const auto sample = [&](std::int64_t x, std::int64_t y) {
        return sampleHeight(values, width, height, x, y);
    };
    for (std::int64_t y = 0; y < height; ++y) {
        for (std::int64_t x = 0; x < width; ++x) {
            const double dx = (sample(x + 1, y) - sample(x - 1, y)) * factors.strength;
            double dy = (sample(x, y + 1) - sample(x, y - 1)) * factors.strength;
            if (factors.flipGreen) {
                dy = -dy;
            }
            const auto [nx, ny, nz] = normalized(-dx, -dy, 1.0);
            const auto offset = static_cast<std::size_t>((y * width + x) * bytesPerPixel);
            image.pixels[offset] = byteFromSignedUnit(nx);
            image.pixels[offset + 1] = byteFromSignedUnit(ny);
            image.pixels[offset + 2] = byteFromSignedUnit(nz);
        }
    }
    return image;
}

std::tuple<double, double, double> normalized(double x, double y, double z) {
    const double length = std::sqrt((x * x + y * y) + z * z);
    const double divisor = std::max(formulas::leastNormalLength, length);
    return {x / divisor, y / divisor, z / divisor};
}

std::uint8_t byteFromSignedUnit(double value) { return byteFromUnit(value * 0.5 + 0.5); }

}  // namespace quarlin::reference

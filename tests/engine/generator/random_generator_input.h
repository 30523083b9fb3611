#pragma once

#include "byte_comparison.h"
#include "imaging/pixels/pixel_image.h"
#include "model/normal_generator_settings.h"
#include "picture.h"

#include <array>
#include <random>

namespace quarlin {

/// Random settings of every kind that the engine must accept; the same for the same seed.
class RandomSettings {
public:
    explicit RandomSettings(std::uint64_t seed) : m_random(seed) {}

    /// Usual, unusual, swapped, equal and out of range.
    NormalGeneratorSettings next() {
        NormalGeneratorSettings settings;
        settings.strength = pick({0.05, 0.0, -2.0, 1.0, 3.0, 12.0, 1000.0, between(0, 12)});
        settings.smoothing = static_cast<int>(m_random() % 8) - 1;
        settings.invertHeight = m_random() % 2 == 0;
        settings.flipGreen = m_random() % 2 == 0;
        settings.roughnessMin = pick({0.18, 0.0, 0.9, 0.5, -0.4, between(0, 1), between(0, 1)});
        settings.roughnessMax = pick({0.82, 1.0, 0.1, 0.5, 1.6, between(0, 1), settings.roughnessMin + 0.01});
        settings.metallicStrength = pick({0.45, 0.0, 1.0, 3.0, -1.0, between(0, 1)});
        settings.aoStrength = pick({0.55, 0.0, 1.0, 4.0, -1.0, between(0, 1)});
        return settings;
    }

private:
    double between(double low, double high) {
        return std::uniform_real_distribution<double>(low, high)(m_random);
    }
    double pick(std::initializer_list<double> values) { return values.begin()[m_random() % values.size()]; }

    std::mt19937_64 m_random;
};

/// Several kinds of pixels: noise, a smooth ramp, few grays, hard edges; every second time with alpha.
inline PixelImage sourceImage(int width, int height, std::uint64_t seed) {
    const bool withAlpha = seed % 2 == 1;
    switch (seed % 4) {
        case 0:
        case 1:
            return pixelImage(fixtures::noisePicture(width, height, seed, withAlpha));
        case 2:
            return pixelImage(fixtures::smoothPicture(width, height));
        default: {
            std::mt19937_64 random(seed);
            return pixelImage(fixtures::drawnPicture(width, height, [&](int, int) {
                constexpr std::array<std::uint8_t, 6> values{0, 10, 127, 128, 254, 255};
                const std::uint8_t gray = values[random() % values.size()];
                const bool colored = random() % 4 == 0;
                return fixtures::Rgba{gray, colored ? values[random() % values.size()] : gray, gray,
                                      withAlpha ? values[random() % values.size()] : std::uint8_t{255}};
            }));
        }
    }
}

}  // namespace quarlin

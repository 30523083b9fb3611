#include "photograph.h"

#include "imaging/base/parallel.h"

#include <algorithm>
#include <array>
#include <vector>

namespace quarlin::bench {

namespace {

/// Mixes the bits of a number until they look random (the finalizer of splitmix64).
std::uint64_t mixed(std::uint64_t value) {
    value += 0x9E3779B97F4A7C15U;
    value = (value ^ (value >> 30U)) * 0xBF58476D1CE4E5B9U;
    value = (value ^ (value >> 27U)) * 0x94D049BB133111EBU;
    return value ^ (value >> 31U);
}

/// Random values at the corners of square cells, blended smoothly in between.
class SmoothNoise {
public:
    SmoothNoise(std::int64_t size, std::int64_t cell, std::uint64_t seed)
        : m_cell(cell), m_columns(size / cell + 2), m_corners(pixelCount(m_columns, m_columns)) {
        for (std::size_t index = 0; index < m_corners.size(); ++index) {
            m_corners[index] = static_cast<double>(mixed(seed * 1000003U + index) >> 40U) / (1 << 24) - 0.5;
        }
        for (std::int64_t offset = 0; offset < cell; ++offset) {
            const double t = static_cast<double>(offset) / static_cast<double>(cell);
            m_blend.push_back(t * t * (3.0 - 2.0 * t));
        }
    }

    /// A value in -0.5...0.5.
    double at(std::int64_t x, std::int64_t y) const {
        const double* corner = m_corners.data() + (y / m_cell) * m_columns + x / m_cell;
        const double right = m_blend[static_cast<std::size_t>(x % m_cell)];
        const double down = m_blend[static_cast<std::size_t>(y % m_cell)];
        const double top = corner[0] + (corner[1] - corner[0]) * right;
        const double bottom = corner[m_columns] + (corner[m_columns + 1] - corner[m_columns]) * right;
        return top + (bottom - top) * down;
    }

private:
    std::int64_t m_cell;
    std::int64_t m_columns;
    std::vector<double> m_corners;
    std::vector<double> m_blend;
};

}  // namespace

PixelImage photograph(std::int64_t size, std::uint64_t seed) {
    constexpr double middle = 118.0;
    constexpr double firstAmplitude = 150.0;
    constexpr double driftAmplitude = 40.0;
    constexpr double grain = 5.2;
    std::vector<SmoothNoise> octaves;
    for (std::int64_t cell = 512; cell >= 2; cell /= 2) {
        octaves.emplace_back(size, cell, seed + static_cast<std::uint64_t>(cell));
    }
    const std::array<SmoothNoise, 3> drifts{SmoothNoise(size, 256, seed + 10001),
                                            SmoothNoise(size, 256, seed + 10002),
                                            SmoothNoise(size, 256, seed + 10003)};
    PixelImage image{size, size, PixelBuffer(pixelCount(size, size) * bytesPerPixel)};
    forEachInParallel(size, [&](std::int64_t y) {
        std::uint8_t* pixel = image.pixels.data() + y * size * bytesPerPixel;
        for (std::int64_t x = 0; x < size; ++x) {
            double light = middle;
            double amplitude = firstAmplitude;
            for (const SmoothNoise& octave : octaves) {
                light += octave.at(x, y) * amplitude;
                amplitude /= 2.0;
            }
            std::uint64_t random = mixed(seed + static_cast<std::uint64_t>(y * size + x) * 3);
            for (const SmoothNoise& drift : drifts) {
                // The sum of two uniform numbers gives a grain that is rarely strong.
                const auto first = static_cast<double>(random & 1023U);
                const auto second = static_cast<double>((random >> 10U) & 1023U);
                random >>= 20U;
                const double value =
                    light + drift.at(x, y) * driftAmplitude + (first + second - 1023.0) / 1023.0 * grain;
                *pixel++ = static_cast<std::uint8_t>(std::clamp(value, 0.0, 255.0));
            }
            *pixel++ = 255;
        }
    });
    return image;
}

const PixelImage& largePhotograph() {
    static const PixelImage image = photograph(4096);
    return image;
}

}  // namespace quarlin::bench

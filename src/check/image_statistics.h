#pragma once

#include <QImage>

#include <array>
#include <cstdint>

namespace quarlin {

/// Properties of an image as a whole, of `pixelFormat`.
struct ImageStatistics {
    /// The least and the greatest value of red, green, blue and alpha.
    std::array<std::uint8_t, 4> least{255, 255, 255, 255};
    std::array<std::uint8_t, 4> greatest{0, 0, 0, 0};
    /// The mean of each channel.
    std::array<double, 4> mean{};
    /// Whether red, green and blue are the same in every pixel.
    bool isGray = true;

    bool isConstant(std::size_t channel) const { return least[channel] == greatest[channel]; }
};

ImageStatistics imageStatistics(const QImage& image);

}  // namespace quarlin

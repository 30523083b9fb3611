#pragma once

#include <array>
#include <cstdint>

namespace quarlin {

/// The weights of ITU-R BT.709 for red, green and blue.
inline constexpr std::array<double, 3> luminanceWeights{0.2126, 0.7152, 0.0722};

/// The luminance of a pixel's R, G and B bytes, truncated. Each product is rounded, and red and green are
/// added first: so it never exceeds 254.
inline std::uint8_t luminanceByte(const std::uint8_t* pixel) {
    const double luminance =
        (pixel[0] * luminanceWeights[0] + pixel[1] * luminanceWeights[1]) + pixel[2] * luminanceWeights[2];
    return static_cast<std::uint8_t>(luminance);
}

}  // namespace quarlin

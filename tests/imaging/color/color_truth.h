#pragma once

#include "picture.h"
#include "rendering.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <functional>

namespace quarlin {

// What colors are by their definitions, worked out without the engine and without a color library.

/// The CIE 1931 chromaticities of red, green and blue.
struct Primaries {
    std::array<std::array<double, 2>, 3> chromaticities;
};

inline constexpr Primaries srgbPrimaries{{{{0.64, 0.33}, {0.30, 0.60}, {0.15, 0.06}}}};
inline constexpr Primaries p3Primaries{{{{0.680, 0.320}, {0.265, 0.690}, {0.150, 0.060}}}};
inline constexpr Primaries adobePrimaries{{{{0.64, 0.33}, {0.21, 0.71}, {0.15, 0.06}}}};

using Color = std::array<double, 3>;

/// The transfer curve of sRGB, from light to code value and back; both 0...1.
inline double encodedSRGB(double light) {
    const double inside = std::min(std::max(light, 0.0), 1.0);
    return inside <= 0.0031308 ? 12.92 * inside : 1.055 * std::pow(inside, 1 / 2.4) - 0.055;
}
inline double decodedSRGB(double value) {
    return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
}

/// The light of one space as the light of sRGB. Both have the white D65.
Color inSRGB(const Primaries& primaries, const Color& light);

/// Whether the file renders at `width` x `height` opaque pixels, each sample within `tolerance` of
/// `expected(x, y)`, which is 0...255 and not rounded. 0.5 is the nearest byte exactly; what is more leaves
/// room for the 16-bit numbers in which a profile is written.
testing::AssertionResult rendersNear(const QUrl& file, int width, int height,
                                     const std::function<Color(int x, int y)>& expected, double tolerance);

}  // namespace quarlin

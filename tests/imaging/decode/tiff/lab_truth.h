#pragma once

#include <array>

namespace quarlin {

/// The bytes of sRGB, not rounded, of a color of CIELAB for the white of D50: L is 0...100, a and b are
/// -128...127. Computed from the definitions, without a color library.
std::array<double, 3> srgbOfLab(double lightness, double a, double b);

}  // namespace quarlin

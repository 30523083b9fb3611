#include "lab_truth.h"

#include <algorithm>
#include <cmath>

namespace quarlin {

namespace {

double inverseOfLab(double value) {
    constexpr double corner = 6.0 / 29;
    return value > corner ? value * value * value : 3 * corner * corner * (value - 4.0 / 29);
}

double encoded(double light) {
    light = std::clamp(light, 0.0, 1.0);
    return 255 * (light <= 0.0031308 ? 12.92 * light : 1.055 * std::pow(light, 1 / 2.4) - 0.055);
}

}  // namespace

std::array<double, 3> srgbOfLab(double lightness, double a, double b) {
    constexpr std::array<double, 3> white{0.9642, 1.0, 0.8249};
    const double middle = (lightness + 16) / 116;
    const double x = white[0] * inverseOfLab(middle + a / 500);
    const double y = white[1] * inverseOfLab(middle);
    const double z = white[2] * inverseOfLab(middle - b / 200);
    // XYZ for D50 to linear sRGB, adapted by the matrix of Bradford.
    return {encoded(3.1338561 * x - 1.6168667 * y - 0.4906146 * z),
            encoded(-0.9787684 * x + 1.9161415 * y + 0.0334540 * z),
            encoded(0.0719453 * x - 0.2289914 * y + 1.4052427 * z)};
}

}  // namespace quarlin

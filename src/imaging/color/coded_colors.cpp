#include "imaging/color/coded_colors.h"

#include "imaging/color/lcms_profiles.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

namespace quarlin {

namespace {

constexpr int unspecified = 2;

std::optional<ColorPrimaries> primariesOf(int code) {
    constexpr cmsCIExyY cinemaWhite{0.314, 0.351, 1.0};
    constexpr cmsCIExyYTRIPLE p3{{0.680, 0.320, 1.0}, {0.265, 0.690, 1.0}, {0.150, 0.060, 1.0}};
    switch (code) {
        case 1:
        case unspecified:
            return bt709Primaries;
        case 5:
            // ITU-R BT.601 with 625 lines.
            return ColorPrimaries{d65White, {{0.64, 0.33, 1.0}, {0.29, 0.60, 1.0}, {0.15, 0.06, 1.0}}};
        case 6:
        case 7:
            // ITU-R BT.601 with 525 lines, and SMPTE 240M.
            return ColorPrimaries{d65White, {{0.630, 0.340, 1.0}, {0.310, 0.595, 1.0}, {0.155, 0.070, 1.0}}};
        case 9:
            // ITU-R BT.2020.
            return ColorPrimaries{d65White, {{0.708, 0.292, 1.0}, {0.170, 0.797, 1.0}, {0.131, 0.046, 1.0}}};
        case 11:
            // DCI-P3.
            return ColorPrimaries{cinemaWhite, p3};
        case 12:
            // Display P3.
            return ColorPrimaries{d65White, p3};
        default:
            return std::nullopt;
    }
}

/// ITU-R BT.709, with the exact constants that make the curve smooth.
Curve bt709Curve() {
    constexpr double alpha = 1.099296826809442;
    constexpr double beta = 0.018053968510807;
    const std::array<cmsFloat64Number, 5> parameters{1 / 0.45, 1 / alpha, (alpha - 1) / alpha, 1 / 4.5,
                                                     4.5 * beta};
    return Curve(cmsBuildParametricToneCurve(nullptr, 4, parameters.data()));
}

/// PQ of SMPTE ST 2084: light in cd/m² from a code value of 0...1.
double lightOfPq(double value) {
    constexpr double m1 = 2610.0 / 16384;
    constexpr double m2 = 2523.0 / 4096 * 128;
    constexpr double c1 = 3424.0 / 4096;
    constexpr double c2 = 2413.0 / 4096 * 32;
    constexpr double c3 = 2392.0 / 4096 * 32;
    constexpr double brightest = 10000;
    const double power = std::pow(value, 1 / m2);
    return brightest * std::pow(std::max(power - c1, 0.0) / (c2 - c3 * power), 1 / m1);
}

Curve pqCurve() {
    constexpr std::size_t entries = 4096;
    constexpr double referenceWhite = 203;
    constexpr double full = 65535;
    std::vector<cmsUInt16Number> table(entries);
    for (std::size_t entry = 0; entry < entries; ++entry) {
        const double light = lightOfPq(static_cast<double>(entry) / (entries - 1)) / referenceWhite;
        table[entry] = static_cast<cmsUInt16Number>(std::lround(std::min(light, 1.0) * full));
    }
    return Curve(cmsBuildTabulatedToneCurve16(nullptr, entries, table.data()));
}

/// From code value to light; null for a curve that is unknown or not one of single channels.
Curve curveOf(int transfer) {
    switch (transfer) {
        case 1:
        case 6:
        case 14:
        case 15:
            // ITU-R BT.709, and the same curve of BT.601 and BT.2020.
            return bt709Curve();
        case 4:
            return Curve(cmsBuildGamma(nullptr, 2.2));
        case 5:
            return Curve(cmsBuildGamma(nullptr, 2.8));
        case 8:
            return Curve(cmsBuildGamma(nullptr, 1.0));
        case unspecified:
        case 13:
            return srgbCurve();
        case 16:
            return pqCurve();
        default:
            return nullptr;
    }
}

bool isSRGB(int primaries, int transfer) {
    return (primaries == 1 || primaries == unspecified) && (transfer == 13 || transfer == unspecified);
}

}  // namespace

std::optional<QByteArray> profileOfCodedColors(int primaries, int transfer) {
    const std::optional<ColorPrimaries> found = primariesOf(primaries);
    const Curve curve = found && !isSRGB(primaries, transfer) ? curveOf(transfer) : nullptr;
    if (!curve) {
        return std::nullopt;
    }
    const Profile profile = rgbProfile(*found, curve);
    return profile ? std::optional(serialized(profile)) : std::nullopt;
}

}  // namespace quarlin

#pragma once

#include "imaging/color/lcms_handles.h"

#include <QByteArray>

namespace quarlin {

/// The chromaticities of a color space: its white and its red, green and blue.
struct ColorPrimaries {
    cmsCIExyY white;
    cmsCIExyYTRIPLE colors;
};

inline constexpr cmsCIExyY d65White{0.3127, 0.3290, 1.0};

/// ITU-R BT.709, which are also those of sRGB.
inline constexpr ColorPrimaries bt709Primaries{d65White,
                                               {{0.64, 0.33, 1.0}, {0.30, 0.60, 1.0}, {0.15, 0.06, 1.0}}};

/// The curve of sRGB, from code value to light.
Curve srgbCurve();

/// An RGB profile with one curve, from code value to light, for all channels.
Profile rgbProfile(const ColorPrimaries& primaries, const Curve& curve);

/// The profile as a file holds it.
QByteArray serialized(const Profile& profile);

}  // namespace quarlin

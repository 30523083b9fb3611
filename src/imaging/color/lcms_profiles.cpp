#include "imaging/color/lcms_profiles.h"

#include <array>

namespace quarlin {

Curve srgbCurve() {
    const std::array<cmsFloat64Number, 5> parameters{2.4, 1 / 1.055, 0.055 / 1.055, 1 / 12.92, 0.04045};
    return Curve(cmsBuildParametricToneCurve(nullptr, 4, parameters.data()));
}

Profile rgbProfile(const ColorPrimaries& primaries, const Curve& curve) {
    const std::array<cmsToneCurve*, 3> curves{curve.get(), curve.get(), curve.get()};
    return Profile(cmsCreateRGBProfile(&primaries.white, &primaries.colors, curves.data()));
}

QByteArray serialized(const Profile& profile) {
    cmsUInt32Number size = 0;
    cmsSaveProfileToMem(profile.get(), nullptr, &size);
    QByteArray bytes(static_cast<qsizetype>(size), Qt::Uninitialized);
    cmsSaveProfileToMem(profile.get(), bytes.data(), &size);
    return bytes;
}

}  // namespace quarlin

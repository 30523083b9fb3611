#include "imaging/color/color_profile.h"

#include "imaging/color/lcms_profiles.h"

#include <array>
#include <cmath>

namespace quarlin {

using namespace Qt::StringLiterals;

namespace {

/// Whether the conversion to sRGB leaves every sample of a grid within half an 8-bit step.
bool changesNothing(cmsHPROFILE profile, int channels) {
    const Profile srgb(cmsCreate_sRGBProfile());
    const Transform transform(cmsCreateTransform(profile, channels == 1 ? TYPE_GRAY_DBL : TYPE_RGB_DBL,
                                                 srgb.get(), TYPE_RGB_DBL, INTENT_RELATIVE_COLORIMETRIC,
                                                 cmsFLAGS_NOOPTIMIZE | cmsFLAGS_NOCACHE));
    if (!transform) {
        return false;
    }
    const auto staysPut = [&](std::array<double, 3> sample) {
        std::array<double, 3> converted{};
        cmsDoTransform(transform.get(), sample.data(), converted.data(), 1);
        for (std::size_t channel = 0; channel < 3; ++channel) {
            if (!(std::abs(converted[channel] - sample[channel]) < 0.5 / 255.0)) {
                return false;
            }
        }
        return true;
    };
    for (int level = 0; level <= 255; ++level) {
        const double value = level / 255.0;
        if (!staysPut({value, value, value})) {
            return false;
        }
    }
    if (channels == 1) {
        return true;
    }
    constexpr int steps = 16;
    for (int red = 0; red <= steps; ++red) {
        for (int green = 0; green <= steps; ++green) {
            for (int blue = 0; blue <= steps; ++blue) {
                if (!staysPut({red / double{steps}, green / double{steps}, blue / double{steps}})) {
                    return false;
                }
            }
        }
    }
    return true;
}

}  // namespace

QString profileName(const QByteArray& bytes) {
    const Profile profile(
        cmsOpenProfileFromMem(bytes.constData(), static_cast<cmsUInt32Number>(bytes.size())));
    std::array<wchar_t, 256> name{};
    if (profile) {
        cmsGetProfileInfo(profile.get(), cmsInfoDescription, "en", "US", name.data(),
                          static_cast<cmsUInt32Number>(name.size() * sizeof(wchar_t)));
    }
    name.back() = L'\0';
    const QString text = QString::fromWCharArray(name.data()).simplified();
    return text.isEmpty() ? u"unnamed profile"_s : text;
}

ProfileUse judgeProfile(const QByteArray& bytes, int channels) {
    const Profile profile(
        cmsOpenProfileFromMem(bytes.constData(), static_cast<cmsUInt32Number>(bytes.size())));
    if (!profile || static_cast<int>(cmsChannelsOf(cmsGetColorSpace(profile.get()))) != channels) {
        return ProfileUse::unusable;
    }
    if (channels <= 3 && changesNothing(profile.get(), channels)) {
        return ProfileUse::samplesAreSRGB;
    }
    return ProfileUse::convert;
}

std::optional<QByteArray> profileOfGamma(double gamma, int channels) {
    constexpr double smallest = 0.01;
    constexpr double largest = 10.0;
    if (gamma < smallest || gamma > largest || std::abs(gamma - 0.45455) < 0.0005) {
        return std::nullopt;
    }
    const Curve curve(cmsBuildGamma(nullptr, 1.0 / gamma));
    const Profile profile = channels == 1 ? Profile(cmsCreateGrayProfile(cmsD50_xyY(), curve.get()))
                                          : rgbProfile(bt709Primaries, curve);
    return profile ? std::optional(serialized(profile)) : std::nullopt;
}

QByteArray labProfile() { return serialized(Profile(cmsCreateLab4Profile(nullptr))); }

}  // namespace quarlin

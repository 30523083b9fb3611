#include "imaging/color/color_profile.h"

#include "imaging/color/lcms_handles.h"

#include <QtEndian>

#include <array>
#include <cmath>

namespace quarlin {

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

/// The exponent of a gAMA chunk that stands before the pixels and beside no iCCP or sRGB chunk.
std::optional<double> loneGamma(const QByteArray& png) {
    constexpr qsizetype signatureSize = 8;
    constexpr qsizetype chunkOverhead = 12;
    std::optional<double> gamma;
    qsizetype position = signatureSize;
    while (position + chunkOverhead <= png.size()) {
        const auto length = qFromBigEndian<std::uint32_t>(png.constData() + position);
        const QByteArrayView type(png.constData() + position + 4, 4);
        if (type == "iCCP" || type == "sRGB") {
            return std::nullopt;
        }
        if (type == "IDAT") {
            break;
        }
        if (type == "gAMA" && length == 4 && position + chunkOverhead + 4 <= png.size()) {
            gamma = qFromBigEndian<std::uint32_t>(png.constData() + position + 8) / 100000.0;
        }
        position += chunkOverhead + static_cast<qsizetype>(length);
    }
    return gamma;
}

QByteArray serialized(cmsHPROFILE profile) {
    cmsUInt32Number size = 0;
    cmsSaveProfileToMem(profile, nullptr, &size);
    QByteArray bytes(static_cast<qsizetype>(size), Qt::Uninitialized);
    cmsSaveProfileToMem(profile, bytes.data(), &size);
    return bytes;
}

}  // namespace

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

std::optional<QByteArray> profileOfPngGamma(const QByteArray& png, int channels) {
    const std::optional<double> gamma = loneGamma(png);
    constexpr double smallest = 0.01;
    constexpr double largest = 10.0;
    if (!gamma || *gamma < smallest || *gamma > largest || std::abs(*gamma - 0.45455) < 0.0005) {
        return std::nullopt;
    }
    const Curve curve(cmsBuildGamma(nullptr, 1.0 / *gamma));
    // White point D65 and primaries of ITU-R BT.709, which are sRGB's.
    const cmsCIExyY white{0.3127, 0.3290, 1.0};
    const cmsCIExyYTRIPLE primaries{{0.64, 0.33, 1.0}, {0.30, 0.60, 1.0}, {0.15, 0.06, 1.0}};
    const std::array<cmsToneCurve*, 3> curves{curve.get(), curve.get(), curve.get()};
    const Profile profile(channels == 1 ? cmsCreateGrayProfile(cmsD50_xyY(), curve.get())
                                        : cmsCreateRGBProfile(&white, &primaries, curves.data()));
    return profile ? std::optional(serialized(profile.get())) : std::nullopt;
}

}  // namespace quarlin

#include "imaging/color/color_conversion.h"

#include "imaging/color/lcms_profiles.h"
#include "imaging/pixels/pixel_image.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <memory>
#include <vector>

namespace quarlin {

namespace {

constexpr cmsUInt32Number intent = INTENT_RELATIVE_COLORIMETRIC;
constexpr cmsUInt32Number exact = cmsFLAGS_NOOPTIMIZE | cmsFLAGS_NOCACHE | cmsFLAGS_BLACKPOINTCOMPENSATION;

template <typename Sample>
constexpr std::size_t levels = std::size_t{std::numeric_limits<Sample>::max()} + 1;

std::uint8_t roundedByte(double unit) {
    return static_cast<std::uint8_t>(std::lround(std::clamp(unit, 0.0, 1.0) * 255));
}

/// Gray: a table of one byte for each level.
template <typename Sample>
ColorConversion<Sample> grayConversion(cmsHPROFILE profile, int samplesPerPixel) {
    const Profile graySRGB(cmsCreateGrayProfile(cmsD50_xyY(), srgbCurve().get()));
    const Transform transform(
        cmsCreateTransform(profile, TYPE_GRAY_DBL, graySRGB.get(), TYPE_GRAY_DBL, intent, exact));
    if (!transform) {
        return {};
    }
    std::vector<double> grays(levels<Sample>);
    for (std::size_t level = 0; level < grays.size(); ++level) {
        grays[level] = static_cast<double>(level) / std::numeric_limits<Sample>::max();
    }
    cmsDoTransform(transform.get(), grays.data(), grays.data(), static_cast<cmsUInt32Number>(grays.size()));
    std::vector<std::uint8_t> bytes(grays.size());
    std::transform(grays.begin(), grays.end(), bytes.begin(), roundedByte);
    return [bytes = std::move(bytes), samplesPerPixel](const Sample* input, std::int64_t count,
                                                       std::uint8_t* output) {
        for (std::int64_t index = 0; index < count; ++index) {
            const std::uint8_t gray = bytes[input[index * samplesPerPixel]];
            std::fill_n(output + index * bytesPerPixel, 3, gray);
        }
    };
}

/// Whether the profile has only curves and primaries: a table would take precedence over them.
bool isDescribedByPrimaries(cmsHPROFILE profile) {
    constexpr std::array tables{cmsSigAToB0Tag, cmsSigAToB1Tag, cmsSigAToB2Tag, cmsSigDToB0Tag,
                                cmsSigDToB1Tag, cmsSigDToB2Tag, cmsSigDToB3Tag};
    return cmsIsMatrixShaper(profile) != 0 &&
           std::none_of(tables.begin(), tables.end(),
                        [&](cmsTagSignature tag) { return cmsIsTag(profile, tag) != 0; });
}

/// The steps in which light is measured: 16 bits, so that even the darkest bytes are twenty steps apart.
constexpr int lightSteps = 65535;

/// The byte of sRGB for every step of light.
const std::vector<std::uint8_t>& bytesOfLight() {
    static const std::vector<std::uint8_t> bytes = [] {
        std::vector<std::uint8_t> table(std::size_t{lightSteps} + 1);
        for (std::size_t step = 0; step < table.size(); ++step) {
            const double light = static_cast<double>(step) / lightSteps;
            table[step] =
                roundedByte(light <= 0.0031308 ? 12.92 * light : 1.055 * std::pow(light, 1 / 2.4) - 0.055);
        }
        return table;
    }();
    return bytes;
}

/// What a sample adds to red, green and blue light, in steps; the fourth number only fills the vector.
using Light = std::array<float, 4>;

/// The light of every level of the three channels. In light, the channels of a profile that is described by
/// curves and primaries simply add up.
template <typename Sample>
std::vector<Light> lightOfLevels(cmsHPROFILE profile) {
    const Curve straight(cmsBuildGamma(nullptr, 1.0));
    const Profile linear = rgbProfile(bt709Primaries, straight);
    const Transform transform(
        cmsCreateTransform(profile, TYPE_RGB_DBL, linear.get(), TYPE_RGB_DBL, intent, exact));
    if (!transform) {
        return {};
    }
    using Color = std::array<double, 3>;
    std::vector<Color> colors(3 * levels<Sample>);
    for (std::size_t channel = 0; channel < 3; ++channel) {
        for (std::size_t level = 0; level < levels<Sample>; ++level) {
            colors[channel * levels<Sample> + level][channel] =
                static_cast<double>(level) / std::numeric_limits<Sample>::max();
        }
    }
    cmsDoTransform(transform.get(), colors.data(), colors.data(),
                   static_cast<cmsUInt32Number>(colors.size()));
    const Color black = colors[0];
    std::vector<Light> lights(colors.size());
    for (std::size_t index = 0; index < lights.size(); ++index) {
        // The light of black, and the half for rounding, are added once: with red.
        const bool isRed = index < levels<Sample>;
        for (std::size_t primary = 0; primary < 3; ++primary) {
            const double added = colors[index][primary] - (isRed ? 0 : black[primary]);
            lights[index][primary] = static_cast<float>(added * lightSteps + (isRed ? 0.5 : 0));
        }
    }
    return lights;
}

template <typename Sample>
ColorConversion<Sample> primariesConversion(cmsHPROFILE profile, int samplesPerPixel) {
    std::vector<Light> lights = lightOfLevels<Sample>(profile);
    if (lights.empty()) {
        return {};
    }
    return [lights = std::move(lights), &bytes = bytesOfLight(), samplesPerPixel](
               const Sample* input, std::int64_t count, std::uint8_t* output) {
        const Light* reds = lights.data();
        const Light* greens = reds + levels<Sample>;
        const Light* blues = greens + levels<Sample>;
        for (std::int64_t index = 0; index < count; ++index) {
            const Sample* sample = input + index * samplesPerPixel;
            const Light& red = reds[sample[0]];
            const Light& green = greens[sample[1]];
            const Light& blue = blues[sample[2]];
            std::array<int, 4> steps{};
            for (std::size_t primary = 0; primary < 4; ++primary) {
                const float light = red[primary] + green[primary] + blue[primary];
                steps[primary] = static_cast<int>(std::clamp(light, 0.0F, static_cast<float>(lightSteps)));
            }
            std::uint8_t* pixel = output + index * bytesPerPixel;
            for (std::size_t primary = 0; primary < 3; ++primary) {
                pixel[primary] = bytes[static_cast<std::size_t>(steps[primary])];
            }
        }
    };
}

/// Any other profile, step by step through the color library.
template <typename Sample>
ColorConversion<Sample> tableConversion(cmsHPROFILE profile, int channels, int samplesPerPixel) {
    constexpr cmsUInt32Number bytesPerSample = sizeof(Sample);
    const cmsUInt32Number format = cmsFormatterForColorspaceOfProfile(profile, bytesPerSample, 0) |
                                   EXTRA_SH(static_cast<cmsUInt32Number>(samplesPerPixel - channels));
    constexpr cmsUInt32Number rgbAndGap = TYPE_RGB_8 | EXTRA_SH(1U);
    const Profile srgb(cmsCreate_sRGBProfile());
    // What a `std::function` holds must be copyable.
    const std::shared_ptr<void> transform(
        cmsCreateTransform(profile, format, srgb.get(), rgbAndGap, intent, exact), [](cmsHTRANSFORM owned) {
            if (owned != nullptr) {
                cmsDeleteTransform(owned);
            }
        });
    if (!transform) {
        return {};
    }
    return [transform](const Sample* input, std::int64_t count, std::uint8_t* output) {
        cmsDoTransform(transform.get(), input, output, static_cast<cmsUInt32Number>(count));
    };
}

}  // namespace

template <typename Sample>
ColorConversion<Sample> conversionToSRGB(const QByteArray& profile, int channels, int samplesPerPixel) {
    const Profile opened(
        cmsOpenProfileFromMem(profile.constData(), static_cast<cmsUInt32Number>(profile.size())));
    if (!opened) {
        return {};
    }
    if (channels == 1) {
        return grayConversion<Sample>(opened.get(), samplesPerPixel);
    }
    if (channels == 3 && isDescribedByPrimaries(opened.get())) {
        return primariesConversion<Sample>(opened.get(), samplesPerPixel);
    }
    return tableConversion<Sample>(opened.get(), channels, samplesPerPixel);
}

template ColorConversion<std::uint8_t> conversionToSRGB(const QByteArray&, int, int);
template ColorConversion<std::uint16_t> conversionToSRGB(const QByteArray&, int, int);

}  // namespace quarlin

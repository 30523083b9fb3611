#include "imaging/decode/row_conversion.h"

#include "imaging/color/color_conversion.h"
#include "imaging/color/color_profile.h"
#include "imaging/pixels/convert_pixels.h"

#include <algorithm>
#include <limits>
#include <utility>
#include <vector>

namespace quarlin {

namespace {

template <typename Sample, int channels>
void convertSRGB(const void* samples, std::int64_t count, std::uint8_t* pixels) {
    convertPixels<Sample, channels>(static_cast<const Sample*>(samples), count, pixels);
}

template <typename Sample, int channels>
void convertPremultipliedSRGB(const void* samples, std::int64_t count, std::uint8_t* pixels) {
    spreadPixels<Sample, channels>(static_cast<const Sample*>(samples), count, pixels);
    for (std::int64_t index = 0; index < count; ++index) {
        std::uint8_t* pixel = pixels + index * bytesPerPixel;
        // No color is brighter than its alpha allows, whatever the file holds.
        std::transform(pixel, pixel + 3, pixel,
                       [&](std::uint8_t color) { return std::min(color, pixel[3]); });
    }
}

template <typename Sample>
RowConversion conversionOfSRGB(const SampleForm& form) {
    const bool isPremultiplied = form.alpha == FileAlpha::premultiplied;
    switch (form.channels) {
        case 1:
            return convertSRGB<Sample, 1>;
        case 2:
            return isPremultiplied ? convertPremultipliedSRGB<Sample, 2> : convertSRGB<Sample, 2>;
        case 3:
            return convertSRGB<Sample, 3>;
        case 4:
            return isPremultiplied ? convertPremultipliedSRGB<Sample, 4> : convertSRGB<Sample, 4>;
        default:
            return {};
    }
}

/// `count` pixels of `channels` samples with the colors divided by their alpha, which is the last sample.
template <typename Sample>
std::vector<Sample> straightened(const Sample* input, std::int64_t count, int channels) {
    constexpr std::uint64_t full = std::numeric_limits<Sample>::max();
    std::vector<Sample> samples(input, input + count * channels);
    for (auto pixel = samples.begin(); pixel != samples.end(); pixel += channels) {
        const std::uint64_t alpha = *(pixel + channels - 1);
        if (alpha > 0) {
            std::transform(pixel, pixel + channels - 1, pixel, [&](Sample color) {
                return static_cast<Sample>(std::min(full, (color * full + alpha / 2) / alpha));
            });
        }
    }
    return samples;
}

/// The conversion with a color conversion of `form`.
template <typename Sample>
RowConversion conversionBy(ColorConversion<Sample> convert, const SampleForm& form) {
    return [=, convert = std::move(convert)](const void* samples, std::int64_t count, std::uint8_t* pixels) {
        const auto* input = static_cast<const Sample*>(samples);
        if (form.hasAlpha && form.alpha == FileAlpha::premultiplied) {
            convert(straightened(input, count, form.channels).data(), count, pixels);
        } else {
            convert(input, count, pixels);
        }
        for (std::int64_t index = 0; index < count; ++index) {
            pixels[index * bytesPerPixel + 3] =
                form.hasAlpha ? sampleToByte(input[(index + 1) * form.channels - 1]) : std::uint8_t{255};
        }
        if (form.hasAlpha) {
            premultiplyPixels(pixels, count);
        }
    };
}

/// Whether `profile` can be used for samples of `form`, and what it asks for.
ProfileUse useOf(const QByteArray& profile, const SampleForm& form) {
    return profile.isEmpty() ? ProfileUse::unusable : judgeProfile(profile, form.colorChannels());
}

/// The profile that counts for samples of `form`; nothing if they count as sRGB.
std::optional<NamedProfile> profileFor(const SampleForm& form, const FileColors& colors) {
    constexpr int inks = 4;
    if (colors.handling == ColorHandling::keepSamples && form.colorChannels() != inks) {
        return std::nullopt;
    }
    switch (useOf(colors.profile, form)) {
        case ProfileUse::samplesAreSRGB:
            return std::nullopt;
        case ProfileUse::convert:
            return NamedProfile{colors.profile, profileName(colors.profile)};
        case ProfileUse::unusable:
            break;
    }
    return colors.otherwise ? colors.otherwise() : std::nullopt;
}

template <typename Sample>
FileConversion conversionOf(const SampleForm& form, const FileColors& colors) {
    const auto conversionFrom = [&](const std::optional<NamedProfile>& profile) {
        ColorConversion<Sample> conversion;
        if (profile) {
            conversion = conversionToSRGB<Sample>(profile->bytes, form.colorChannels(), form.channels);
        }
        return conversion;
    };
    std::optional<NamedProfile> profile = profileFor(form, colors);
    ColorConversion<Sample> conversion = conversionFrom(profile);
    if (profile && !conversion && colors.otherwise) {
        profile = colors.otherwise();
        conversion = conversionFrom(profile);
    }
    return conversion ? FileConversion{conversionBy(std::move(conversion), form), profile->name}
                      : FileConversion{conversionOfSRGB<Sample>(form)};
}

}  // namespace

FileConversion rowConversion(const SampleForm& form, const FileColors& colors) {
    return form.bits == 16 ? conversionOf<std::uint16_t>(form, colors)
                           : conversionOf<std::uint8_t>(form, colors);
}

}  // namespace quarlin

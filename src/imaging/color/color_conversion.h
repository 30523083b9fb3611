#pragma once

#include <QByteArray>

#include <cstdint>
#include <functional>

namespace quarlin {

/// Converts the colors of `count` pixels to 8-bit sRGB: reads the first samples of each pixel and writes its
/// R, G and B; the fourth byte of each pixel in `output` is left alone. May be called from several threads at
/// once.
template <typename Sample>
using ColorConversion = std::function<void(const Sample* input, std::int64_t count, std::uint8_t* output)>;

/// The conversion that an ICC profile asks for, relative colorimetric with black point compensation.
/// `channels` is the number of color samples of the profile (1 gray, 3 RGB, 4 CMYK), `samplesPerPixel` the
/// distance from one pixel to the next, at least `channels`. Gray becomes neutral. Gray, and RGB with curves
/// and primaries only, becomes the exact value, rounded. Empty if the profile can't be used. `Sample` is an
/// unsigned integer of 8 or 16 bits.
template <typename Sample>
ColorConversion<Sample> conversionToSRGB(const QByteArray& profile, int channels, int samplesPerPixel);

extern template ColorConversion<std::uint8_t> conversionToSRGB(const QByteArray&, int, int);
extern template ColorConversion<std::uint16_t> conversionToSRGB(const QByteArray&, int, int);

}  // namespace quarlin

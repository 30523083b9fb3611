#pragma once

#include "imaging/pixels/pixel_image.h"
#include "imaging/pixels/premultiply.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <type_traits>

namespace quarlin {

/// An 8-bit sample is the byte.
inline std::uint8_t sampleToByte(std::uint8_t sample) { return sample; }

/// A 16-bit sample is divided by 257 and rounded: 65535 becomes 255.
inline std::uint8_t sampleToByte(std::uint16_t sample) {
    return static_cast<std::uint8_t>((sample * 255U + 32895U) >> 16U);
}

/// Multiplies the colors of `count` RGBA pixels by their alpha, in place.
inline void premultiplyPixels(std::uint8_t* pixels, std::int64_t count) {
    for (std::int64_t index = 0; index < count; ++index) {
        std::uint8_t* pixel = pixels + index * bytesPerPixel;
        for (int channel = 0; channel < 3; ++channel) {
            pixel[channel] = premultiplied(pixel[channel], pixel[3]);
        }
    }
}

/// Converts `count` gray samples of 8 bits to opaque RGBA.
inline void spreadGrays(const std::uint8_t* input, std::int64_t count, std::uint8_t* output) {
    for (std::int64_t index = 0; index < count; ++index) {
        // Whole pixels are little-endian numbers, red in the lowest byte.
        const std::uint32_t gray = input[index];
        const std::uint32_t pixel = gray | gray << 8U | gray << 16U | 0xFF000000U;
        std::memcpy(output + index * bytesPerPixel, &pixel, sizeof pixel);
    }
}

/// Converts `count` RGB pixels of 8 bits to opaque RGBA.
inline void spreadColors(const std::uint8_t* input, std::int64_t count, std::uint8_t* output) {
    const auto spread = [&](std::int64_t index, std::size_t readBytes) {
        std::uint32_t pixel = 0;
        std::memcpy(&pixel, input + index * 3, readBytes);
        pixel |= 0xFF000000U;
        std::memcpy(output + index * bytesPerPixel, &pixel, sizeof pixel);
    };
    // Each pixel is read with the first byte of the next one; the last has none.
    for (std::int64_t index = 0; index + 1 < count; ++index) {
        spread(index, 4);
    }
    spread(count - 1, 3);
}

/// Converts `count` decoded pixels, at least one, of `channels` samples (1 gray, 2 gray and alpha, 3 RGB, 4
/// RGBA) to RGBA of 8 bits, and returns whether all of them are opaque.
template <typename Sample, int channels>
bool spreadPixels(const Sample* input, std::int64_t count, std::uint8_t* output) {
    constexpr bool isGray = channels <= 2;
    constexpr bool hasAlpha = channels % 2 == 0;
    if constexpr (std::is_same_v<Sample, std::uint8_t> && !hasAlpha) {
        if constexpr (isGray) {
            spreadGrays(input, count, output);
        } else {
            spreadColors(input, count, output);
        }
        return true;
    }
    std::uint8_t allAlphas = 255;
    for (std::int64_t index = 0; index < count; ++index) {
        const Sample* sample = input + index * channels;
        std::uint8_t* pixel = output + index * bytesPerPixel;
        pixel[0] = sampleToByte(sample[0]);
        pixel[1] = isGray ? pixel[0] : sampleToByte(sample[1]);
        pixel[2] = isGray ? pixel[0] : sampleToByte(sample[2]);
        pixel[3] = hasAlpha ? sampleToByte(sample[channels - 1]) : std::uint8_t{255};
        allAlphas = static_cast<std::uint8_t>(allAlphas & pixel[3]);
    }
    return allAlphas == 255;
}

/// The same with the colors multiplied by their alpha.
template <typename Sample, int channels>
void convertPixels(const Sample* input, std::int64_t count, std::uint8_t* output) {
    // Most textures are opaque, and then nothing is to be multiplied.
    if (!spreadPixels<Sample, channels>(input, count, output)) {
        premultiplyPixels(output, count);
    }
}

}  // namespace quarlin

#pragma once

#include "png_filter.h"

#include <array>
#include <cstdint>
#include <cstdlib>
#include <span>

namespace quarlin {

/// Turns a row of residuals, `pixelSize` bytes a pixel, back into samples, in place. `above` is the row
/// above, zeros for the first. False when there is no filter of that number.
///
/// Every pixel needs the one before it; its channels are carried along in locals, so that they go side by
/// side.
template <int pixelSize>
bool unfilterPngRow(std::uint8_t filter, std::span<std::uint8_t> row, const std::uint8_t* above) {
    constexpr auto channels = static_cast<std::size_t>(pixelSize);
    std::array<int, channels> left{};
    std::array<int, channels> upLeft{};
    switch (static_cast<PngFilter>(filter)) {
        case PngFilter::none:
            return true;
        case PngFilter::sub:
            for (std::size_t index = 0; index < row.size(); index += channels) {
                for (std::size_t channel = 0; channel < channels; ++channel) {
                    left[channel] = (row[index + channel] + left[channel]) & 255;
                    row[index + channel] = static_cast<std::uint8_t>(left[channel]);
                }
            }
            return true;
        case PngFilter::up:
            for (std::size_t index = 0; index < row.size(); ++index) {
                row[index] = static_cast<std::uint8_t>(row[index] + above[index]);
            }
            return true;
        case PngFilter::average:
            for (std::size_t index = 0; index < row.size(); index += channels) {
                for (std::size_t channel = 0; channel < channels; ++channel) {
                    left[channel] =
                        (row[index + channel] + (left[channel] + above[index + channel]) / 2) & 255;
                    row[index + channel] = static_cast<std::uint8_t>(left[channel]);
                }
            }
            return true;
        case PngFilter::paeth:
            for (std::size_t index = 0; index < row.size(); index += channels) {
                for (std::size_t channel = 0; channel < channels; ++channel) {
                    const int up = above[index + channel];
                    const int fromLeft = std::abs(up - upLeft[channel]);
                    const int fromUp = std::abs(left[channel] - upLeft[channel]);
                    const int fromUpLeft = std::abs(left[channel] + up - 2 * upLeft[channel]);
                    const int vertical = fromUp <= fromUpLeft ? up : upLeft[channel];
                    const bool isLeft = fromLeft <= fromUp && fromLeft <= fromUpLeft;
                    left[channel] = (row[index + channel] + (isLeft ? left[channel] : vertical)) & 255;
                    upLeft[channel] = up;
                    row[index + channel] = static_cast<std::uint8_t>(left[channel]);
                }
            }
            return true;
    }
    return false;
}

}  // namespace quarlin

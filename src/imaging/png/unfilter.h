#pragma once

#include "imaging/png/filter.h"

#include <array>
#include <cstdint>
#include <cstdlib>
#include <span>

namespace quarlin {

/// The readable bytes that must follow a row to unfilter and the row above it.
inline constexpr std::size_t unfilterSpare = 8;

/// Turns a row of residuals, `pixelSize` bytes per pixel, back into samples, in place. `above` is the row
/// above, all zeros for the first row. False when no filter has that number.
///
/// Each pixel needs the one before it, whose channels are kept in local arrays so that the compiler handles
/// them together. Three channels are handled as four; the fourth is the first of the next pixel, and its
/// result is not used.
template <int pixelSize>
bool unfilterPngRow(std::uint8_t filter, std::span<std::uint8_t> row, const std::uint8_t* above) {
    constexpr auto step = static_cast<std::size_t>(pixelSize);
    constexpr std::size_t channels = step == 3 ? 4 : step;
    std::array<int, channels> left{};
    std::array<int, channels> upLeft{};
    const auto write = [&](std::size_t index) {
        for (std::size_t channel = 0; channel < step; ++channel) {
            row[index + channel] = static_cast<std::uint8_t>(left[channel]);
        }
    };
    const std::uint8_t* residuals = row.data();
    switch (static_cast<PngFilter>(filter)) {
        case PngFilter::none:
            return true;
        case PngFilter::sub:
            for (std::size_t index = 0; index < row.size(); index += step) {
                for (std::size_t channel = 0; channel < channels; ++channel) {
                    left[channel] = (residuals[index + channel] + left[channel]) & 255;
                }
                write(index);
            }
            return true;
        case PngFilter::up:
            for (std::size_t index = 0; index < row.size(); ++index) {
                row[index] = static_cast<std::uint8_t>(row[index] + above[index]);
            }
            return true;
        case PngFilter::average:
            for (std::size_t index = 0; index < row.size(); index += step) {
                for (std::size_t channel = 0; channel < channels; ++channel) {
                    left[channel] =
                        (residuals[index + channel] + (left[channel] + above[index + channel]) / 2) & 255;
                }
                write(index);
            }
            return true;
        case PngFilter::paeth:
            for (std::size_t index = 0; index < row.size(); index += step) {
                for (std::size_t channel = 0; channel < channels; ++channel) {
                    const int up = above[index + channel];
                    const int fromLeft = std::abs(up - upLeft[channel]);
                    const int fromUp = std::abs(left[channel] - upLeft[channel]);
                    const int fromUpLeft = std::abs(left[channel] + up - 2 * upLeft[channel]);
                    const int vertical = fromUp <= fromUpLeft ? up : upLeft[channel];
                    const bool isLeft = fromLeft <= fromUp && fromLeft <= fromUpLeft;
                    left[channel] = (residuals[index + channel] + (isLeft ? left[channel] : vertical)) & 255;
                    upLeft[channel] = up;
                }
                write(index);
            }
            return true;
    }
    return false;
}

}  // namespace quarlin

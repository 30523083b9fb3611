#pragma once

#include <cstdint>

namespace quarlin {

/// `colour * alpha / 255`, rounded to the nearest integer.
constexpr std::uint8_t premultiplied(std::uint8_t colour, std::uint8_t alpha) {
    const unsigned product = static_cast<unsigned>(colour) * alpha + 128U;
    return static_cast<std::uint8_t>((product + (product >> 8U)) >> 8U);
}

/// `colour * 255 / alpha`, rounded to the nearest integer: the straight colour whose premultiplied form is
/// `colour`. A colour above its alpha counts as its alpha; nothing is left of the colour where alpha is 0.
constexpr std::uint8_t unpremultiplied(std::uint8_t colour, std::uint8_t alpha) {
    if (colour >= alpha) {
        return alpha == 0 ? std::uint8_t{0} : std::uint8_t{255};
    }
    return static_cast<std::uint8_t>((colour * 255U + alpha / 2U) / alpha);
}

}  // namespace quarlin

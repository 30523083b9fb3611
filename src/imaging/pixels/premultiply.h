#pragma once

#include <cstdint>

namespace quarlin {

/// `color * alpha / 255`, rounded to the nearest integer.
constexpr std::uint8_t premultiplied(std::uint8_t color, std::uint8_t alpha) {
    const unsigned product = static_cast<unsigned>(color) * alpha + 128U;
    return static_cast<std::uint8_t>((product + (product >> 8U)) >> 8U);
}

/// `color * 255 / alpha`, rounded to the nearest integer: the straight color whose premultiplied form is
/// `color`. A color above its alpha gives 255; alpha 0 gives 0.
constexpr std::uint8_t unpremultiplied(std::uint8_t color, std::uint8_t alpha) {
    if (color >= alpha) {
        return alpha == 0 ? std::uint8_t{0} : std::uint8_t{255};
    }
    return static_cast<std::uint8_t>((color * 255U + alpha / 2U) / alpha);
}

}  // namespace quarlin

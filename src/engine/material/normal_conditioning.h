#pragma once

#include <cstdint>
#include <span>

namespace quarlin {

// Operations on whole RGBA pixels of a normal map.

/// Sets every alpha byte to 255 and leaves the premultiplied color as it is.
void normalizeAlpha(std::span<std::uint8_t> pixels);

/// Replaces every green byte by 255 minus it.
void flipGreenChannel(std::span<std::uint8_t> pixels);

}  // namespace quarlin

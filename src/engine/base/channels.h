#pragma once

#include "imaging/pixels/pixel_image.h"

#include <cstddef>
#include <cstdint>
#include <span>

namespace quarlin {

// Between fractions of one and bytes, and between pixels and gray values.

/// `value * 255`, rounded to the nearest integer with halves away from zero, clamped to 0...255.
std::uint8_t byteFromUnit(double value);

/// The Rec. 709 luminance of the pixel at byte `offset`, truncated, and subtracted from 255 when
/// `inverted`; `fallback` unchanged when there is no image. White gives 254: its three products sum to
/// just below 255.
std::uint8_t grayscale(const PixelImage* image, std::size_t offset, std::uint8_t fallback, bool inverted);

/// Sets the pixel at byte `offset` to opaque gray.
void writeGray(std::uint8_t value, std::span<std::uint8_t> pixels, std::size_t offset);

/// The larger of `min` and (the smaller of `max` and `value`).
double clamp(double value, double min, double max);

}  // namespace quarlin

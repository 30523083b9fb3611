#pragma once

#include "imaging/pixels/pixel_image.h"

#include <cstdint>
#include <vector>

namespace quarlin {

/// Inflates a bare deflate stream with zlib to at most a little more than `size` bytes. Expects that all of
/// it is consumed, and that the end of the stream is reached exactly when `ended`.
std::vector<std::uint8_t> rawInflate(const PixelBuffer& stream, std::size_t size, bool ended);

}  // namespace quarlin

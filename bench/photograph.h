#pragma once

#include "imaging/pixels/pixel_image.h"

#include <cstdint>

namespace quarlin::bench {

/// A square opaque picture that compresses like a photograph of a rough surface: octaves of smooth noise,
/// each half as strong as the one before and the same in all three colors, a slow drift of the tint, and a
/// fine grain in every sample. It is the same on every machine; another `seed` gives another picture.
PixelImage photograph(std::int64_t size, std::uint64_t seed = 1);

/// `photograph(4096)`, drawn once.
const PixelImage& largePhotograph();

}  // namespace quarlin::bench

#pragma once

#include "imaging/pixels/pixel_image.h"
#include "model/normal_generator_settings.h"

#include <cstdint>
#include <span>
#include <vector>

namespace quarlin::reference {

// The plain operations of the map generator: loops over pixels that read like their formulas, and that define
// the results. Exports and previews run the vector forms of engine/generator, which give the same bytes; the
// tests compare the two. Arithmetic is double precision in the order in which the formulas are written, each
// product rounded before it is added. A field has `width * height` elements.

/// A height field: one value in 0...1 per pixel, row by row from the top; larger is higher.
using HeightField = std::vector<double, UninitializedAllocator<double>>;

/// The luminance of `image` as heights, inverted and smoothed as `settings` say.
HeightField smoothedHeightValues(const PixelImage& image, const NormalGeneratorSettings& settings);

/// One pass of an unweighted 3 x 3 mean; at the edges the window is cut off.
HeightField boxBlur(std::span<const double> values, std::int64_t width, std::int64_t height);

/// The field as an opaque gray image.
PixelImage heightImage(std::span<const double> values, std::int64_t width, std::int64_t height);

/// The height at (`x`, `y`), read from the nearest edge pixel when that lies outside.
double sampleHeight(std::span<const double> values, std::int64_t width, std::int64_t height, std::int64_t x,
                    std::int64_t y);

}  // namespace quarlin::reference

#pragma once

#include "texture_processor.h"

// The generator's formulas, one pixel at a time, as they are meant to be read. They define the result: the fast
// forms that the engine runs give the same bytes, and are tested against these.
namespace quarlin::plain {

HeightField smoothedHeightValues(const PixelImage& image, const NormalGeneratorSettings& settings);

HeightField boxBlur(std::span<const double> values, std::int64_t width, std::int64_t height);

PixelImage heightImage(std::span<const double> values, std::int64_t width, std::int64_t height);

PixelImage normalImage(std::span<const double> values, std::int64_t width, std::int64_t height,
                       const NormalGeneratorSettings& settings);

GeneratedSurfaceMaps generatedSurfaceMaps(const PixelImage& source, std::span<const double> heightValues,
                                          const NormalGeneratorSettings& settings);

}  // namespace quarlin::plain

#pragma once

#include "imaging/pixels/pixel_image.h"
#include "model/normal_generator_settings.h"

#include <cstdint>
#include <span>
#include <tuple>

namespace quarlin::reference {

/// The tangent-space normal map of a height field: central differences times the strength (at least
/// 0.05), normalized. A height that rises to the right gives red below 128.
PixelImage normalImage(std::span<const double> values, std::int64_t width, std::int64_t height,
                       const NormalGeneratorSettings& settings);

/// (x, y, z) divided by its length, or by 0.0001 if that is larger.
std::tuple<double, double, double> normalized(double x, double y, double z);

/// The byte for a component in -1...1: -1 gives 0, 0 gives 128, 1 gives 255.
std::uint8_t byteFromSignedUnit(double value);

}  // namespace quarlin::reference

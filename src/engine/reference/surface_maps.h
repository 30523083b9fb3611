#pragma once

#include "engine/base/formulas.h"
#include "engine/base/generated_maps.h"
#include "imaging/pixels/pixel_image.h"
#include "model/normal_generator_settings.h"

#include <cstdint>
#include <span>

namespace quarlin::reference {

/// The `surfaceMaps` of an image and its height field.
GeneratedSurfaceMaps generatedSurfaceMaps(const PixelImage& source, std::span<const double> heightValues,
                                          const NormalGeneratorSettings& settings);

/// Six times the largest height difference to a neighbor in the 3 x 3 window, clamped to 0...1.
double localHeightContrast(std::span<const double> values, std::int64_t width, std::int64_t height,
                           std::int64_t x, std::int64_t y);

/// The cubic step from 0 at `edge0` to 1 at `edge1`; a hard step where the edges are equal.
double smoothStep(double edge0, double edge1, double value);
double smoothStep(formulas::StepEdges edges, double value);

}  // namespace quarlin::reference

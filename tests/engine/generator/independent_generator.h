#pragma once

#include "model/enumeration.h"
#include "model/generated_set.h"

#include <cstdint>
#include <vector>

namespace quarlin::independent {

// A second implementation of the map generator, written directly from its formulas without the engine: one
// loop per formula, nothing shared or optimized. The engine's results are compared with it byte by byte.

using Bytes = std::vector<std::uint8_t>;
using Heights = std::vector<double>;

std::uint8_t unitByte(double value);
std::uint8_t luminanceByte(const Bytes& rgba, std::size_t pixel);

Heights heights(const Bytes& rgba, int width, int height, bool inverted, int smoothing);
Heights blurred(const Heights& heights, int width, int height);
Bytes heightMap(const Heights& heights);
Bytes normalMap(const Heights& heights, int width, int height, double strength, bool flipGreen);
double contrast(const Heights& heights, int width, int height, int x, int y);
double smoothStep(double from, double to, double value);

/// Every map of a set as RGBA.
using Maps = PerCase<GeneratedMap, Bytes>;
Maps maps(const Bytes& rgba, int width, int height, const NormalGeneratorSettings& settings);

/// The packed map of three images of one size. An image is null if its slot is empty; its default is used
/// then.
Bytes packedOrm(const Bytes* occlusion, const Bytes* roughness, const Bytes* metallic, std::size_t pixels,
                double defaultOcclusion, double defaultRoughness, double defaultMetallic, bool gloss);

}  // namespace quarlin::independent

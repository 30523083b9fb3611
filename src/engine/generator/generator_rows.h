#pragma once

#include "engine/base/generator_factors.h"

#include <cstdint>
#include <span>

namespace quarlin {

// The generator's arithmetic, a row at a time, in vectors of doubles. Every lane does what the plain
// operations of engine/reference do for its pixel, operation by operation and in their order, so that the
// bytes are the same on every instruction set; the best one that the machine has is chosen at run time.
//
// A row of heights is padded: `row[-1]` repeats `row[0]`, `row[width]` repeats `row[width - 1]`, and
// `rowSlack` elements before and behind may be read.

/// The elements that a row of heights needs to spare at either end.
inline constexpr std::int64_t rowSlack = 64;

/// Where the maps of a row go: `width` bytes each, and `width * 4` for `normal` and `orm`.
struct GeneratedRow {
    std::uint8_t* height;
    std::uint8_t* normal;
    std::uint8_t* roughness;
    std::uint8_t* gloss;
    std::uint8_t* metallic;
    std::uint8_t* occlusion;
    std::uint8_t* orm;
};

/// The unsmoothed heights of a row of pixels.
void heightRow(const std::uint8_t* pixels, std::int64_t width, bool inverted, double* heights);

/// One row of a 3 x 3 mean over `rows`: the row above, the row itself and the row below, as far as they
/// exist.
void blurRow(std::span<const double* const> rows, std::int64_t width, double* blurred);

/// The maps of a row of pixels. `above` and `below` are `row` itself at the image's edge.
void mapRow(const std::uint8_t* pixels, const double* above, const double* row, const double* below,
            const double* blurred, std::int64_t width, const GeneratorFactors& factors,
            const GeneratedRow& output);

}  // namespace quarlin

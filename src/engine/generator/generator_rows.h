#pragma once

#include "engine/base/generated_maps.h"
#include "engine/base/generator_factors.h"

#include <cstdint>
#include <span>

namespace quarlin {

// The generator's arithmetic, a row at a time, in vectors of doubles. Each lane runs the plain operations of
// engine/reference for one pixel, in their order, so that every instruction set gives the same bytes. The
// best one of the machine is chosen at run time.
//
// A row of heights is padded: `row[-1]` repeats `row[0]`, `row[width]` repeats `row[width - 1]`, and
// `rowSlack` elements before and behind may be read.

/// The number of unused elements that a row of heights has at either end.
inline constexpr std::int64_t rowSlack = 64;

/// The rows of heights that the maps of a row of pixels depend on. `above` and `below` are `row` itself at
/// the image's edge; `blurred` is `row` after one more 3 x 3 mean.
struct HeightWindow {
    const double* above;
    const double* row;
    const double* below;
    const double* blurred;
};

/// Where the maps of a row are written: `width` bytes for a gray map, `width * 4` for the others. `source` is
/// not used.
using GeneratedRow = PerCase<GeneratedMap, std::uint8_t*>;

/// The unsmoothed heights of a row of pixels.
void heightRow(const std::uint8_t* pixels, std::int64_t width, bool inverted, double* heights);

/// One row of a 3 x 3 mean over `rows`: the row above, the row itself and the row below, as far as they
/// exist.
void blurRow(std::span<const double* const> rows, std::int64_t width, double* blurred);

/// Computes the maps of a row of `width` pixels.
void mapRow(const std::uint8_t* pixels, const HeightWindow& heights, std::int64_t width,
            const GeneratorFactors& factors, const GeneratedRow& output);

}  // namespace quarlin

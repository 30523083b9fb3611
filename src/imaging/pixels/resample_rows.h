#pragma once

#include "imaging/pixels/resample.h"

#include <cstdint>
#include <span>

namespace quarlin {

/// Filters one row of `taps.size()` output pixels out of a row of input pixels, four values each. Weights and
/// results are whole multiples of small powers of two, so that every sum is exact and may be added in any
/// order: the result is the same on every instruction set. `wide` is room for four numbers for each input
/// pixel.
void filterPixelRow(const std::uint8_t* input, std::span<const FilterTaps> taps, std::span<double> wide,
                    float* output);

namespace plain {

/// `filterPixelRow` tap by tap.
void filterPixelRow(const std::uint8_t* input, std::span<const FilterTaps> taps, std::span<double> wide,
                    float* output);

}  // namespace plain

}  // namespace quarlin

#pragma once

#include "imaging/pixels/lanczos_taps.h"

#include <cstdint>
#include <span>

namespace quarlin {

/// Makes one row of `taps.size()` output pixels from a row of input pixels, four values each. Weights and
/// results are multiples of small powers of two, so every sum is exact in any order: the result is the same
/// on every instruction set. `wide` is scratch space, four numbers per input pixel.
void filterPixelRow(const std::uint8_t* input, std::span<const FilterTaps> taps, std::span<double> wide,
                    float* output);

namespace plain {

/// `filterPixelRow` tap by tap.
void filterPixelRow(const std::uint8_t* input, std::span<const FilterTaps> taps, std::span<double> wide,
                    float* output);

}  // namespace plain

}  // namespace quarlin

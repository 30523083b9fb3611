#pragma once

#include <cstdint>
#include <span>

namespace quarlin {

/// Makes a row of output pixels, four bytes each, from rows with filtered columns: the sum of `rows`, each
/// times its weight, in units of `filteredUnit`. Each row has as many samples as `output` has bytes, rounded
/// up to a multiple of `filteredRowPadding`; what is in the additional samples does not matter.
///
/// Sums are rounded to the nearest byte. The filter overshoots next to an edge, so every color is kept at or
/// below its alpha. Where alpha is clamped to 255, the colors are scaled down with it; otherwise a cut-out
/// would have a bright rim.
///
/// Weights and samples are multiples of small powers of two: every sum is exact in any order.
void filterRows(std::span<const std::int32_t* const> rows, std::span<const double> weights,
                std::span<std::uint8_t> output);

inline constexpr std::int64_t filteredRowPadding = 32;

namespace plain {

/// `filterRows` sample by sample.
void filterRows(std::span<const std::int32_t* const> rows, std::span<const double> weights,
                std::span<std::uint8_t> output);

}  // namespace plain

}  // namespace quarlin

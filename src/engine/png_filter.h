#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace quarlin {

/// Filters one row of four-byte pixels as the PNG standard defines it, choosing of the five filters the one
/// whose residuals have the smallest sum of magnitudes, and writes the filter's number and the residuals to
/// `output` (one byte more than `row`). `above` is the row above; empty for a first row, which is taken as
/// preceded by zeros. `scratch` has room for `output.size()` bytes.
void filterPngRow(std::span<const std::uint8_t> row, std::span<const std::uint8_t> above,
                  std::span<std::uint8_t> output, std::span<std::uint8_t> scratch);

}  // namespace quarlin

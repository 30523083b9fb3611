#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace quarlin {

/// The filters of the PNG standard, with their numbers.
enum class PngFilter : std::uint8_t { none, sub, up, average, paeth };

/// Writes the residuals of a row with `pixelSize` (1 or 4) bytes per pixel: each sample less the value that
/// `filter` predicts from its neighbors to the left and above. `above` is the row above; `residuals` is as
/// long as the row.
void applyPngFilter(PngFilter filter, std::size_t pixelSize, std::span<const std::uint8_t> row,
                    std::span<const std::uint8_t> above, std::span<std::uint8_t> residuals);

/// The filter whose residuals of this row have the smallest sum of magnitudes: the usual estimate of how well
/// they compress.
PngFilter choosePngFilter(std::size_t pixelSize, std::span<const std::uint8_t> row,
                          std::span<const std::uint8_t> above);

namespace plain {

/// `applyPngFilter` byte by byte, as in the text of the standard.
void applyPngFilter(PngFilter filter, std::size_t pixelSize, std::span<const std::uint8_t> row,
                    std::span<const std::uint8_t> above, std::span<std::uint8_t> residuals);

}  // namespace plain

}  // namespace quarlin

#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace quarlin {

/// The filters of the PNG standard, under their numbers.
enum class PngFilter : std::uint8_t { none, sub, up, average, paeth };

/// Writes what `filter` leaves of a row of samples, `pixelSize` (1 or 4) bytes a pixel: each less what its
/// neighbors to the left and above predict. `above` is the row above, `residuals` as long as the row.
void applyPngFilter(PngFilter filter, std::size_t pixelSize, std::span<const std::uint8_t> row,
                    std::span<const std::uint8_t> above, std::span<std::uint8_t> residuals);

/// The filter whose residuals for this row have the smallest sum of magnitudes, which is a good sign of how
/// well they compress. `scratch` is as long as the row.
PngFilter choosePngFilter(std::size_t pixelSize, std::span<const std::uint8_t> row,
                          std::span<const std::uint8_t> above, std::span<std::uint8_t> scratch);

namespace plain {

/// `applyPngFilter` byte by byte, as the standard words it.
void applyPngFilter(PngFilter filter, std::size_t pixelSize, std::span<const std::uint8_t> row,
                    std::span<const std::uint8_t> above, std::span<std::uint8_t> residuals);

}  // namespace plain

}  // namespace quarlin

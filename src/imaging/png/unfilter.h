#pragma once

#include <cstddef>
#include <cstdint>

namespace quarlin {

/// The readable bytes that must follow filtered rows and the row above them.
inline constexpr std::size_t unfilterSpare = 8;

/// Turns the first of `count` filtered rows, of 1 to 4 bytes per pixel, back into samples in place; the first
/// two where that is faster. `rows` points at the samples of the first row. The byte before the samples of a
/// row is the number of its filter, and rows are at a distance of `rowSize + 1` bytes. `above` is the row
/// above, all zeros for the first row of the image.
///
/// Returns how many rows were unfiltered; 0 when no filter has that number.
std::int64_t unfilterPngRows(std::size_t pixelSize, std::uint8_t* rows, std::size_t rowSize,
                             std::int64_t count, const std::uint8_t* above);

namespace plain {

/// Unfilters one row byte by byte, as in the text of the standard. Returns whether there is such a filter.
bool unfilterPngRow(std::size_t pixelSize, std::uint8_t* row, std::size_t rowSize, const std::uint8_t* above);

}  // namespace plain

}  // namespace quarlin

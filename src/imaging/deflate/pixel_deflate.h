#pragma once

#include "imaging/deflate/deflate_block.h"
#include "imaging/pixels/pixel_image.h"

#include <cstdint>

namespace quarlin {

/// Filtered rows as they stand in an RGBA PNG: each row the filter's number and then its pixels' residuals,
/// four bytes a pixel.
struct FilteredRows {
    std::int64_t width = 0;
    std::int64_t rows = 0;
    /// `bytes()` bytes, with `coderSpare` more behind them.
    const std::uint8_t* data = nullptr;

    std::int64_t bytes() const { return rows * (width * bytesPerPixel + 1); }
};

/// Deflates filtered rows and returns the stream. Matches begin at a pixel and are whole pixels long, at
/// least three of them: what pays for itself in pictures, at a fraction of the places that a general
/// compressor looks at. The stream ends on a byte's edge, with nothing that following data could refer to,
/// and is the end of the whole stream when `isLast`.
PixelBuffer deflatePixels(const FilteredRows& filtered, bool isLast);

}  // namespace quarlin

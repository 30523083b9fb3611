#pragma once

#include "imaging/deflate/deflate_block.h"
#include "imaging/pixels/pixel_image.h"

#include <cstdint>
#include <span>

namespace quarlin {

/// Rows of filtered gray pixels as they stand in an opaque RGBA PNG: for each row the filter's number, and
/// for each pixel one residual, which the red, green and blue bytes share.
struct GrayResiduals {
    std::int64_t width = 0;
    std::int64_t rows = 0;
    /// `rows` filter numbers.
    std::span<const std::uint8_t> filters;
    /// What the filters leave of the first pixels' alpha, `rows` bytes; that of all other pixels is 0.
    std::span<const std::uint8_t> firstAlphas;
    /// `rows * width` residuals, with `coderSpare` bytes behind them.
    const std::uint8_t* values = nullptr;

    std::int64_t bytes() const { return rows * (width * bytesPerPixel + 1); }
};

/// Deflates the byte stream that the residuals stand for, `bytes()` bytes, and returns it. A general
/// compressor sees four times as many places to look for matches; this one works in whole pixels, and so has
/// the time to look for longer matches. The stream ends on a byte's edge, with nothing that following data
/// could refer to, and is the end of the whole stream when `isLast`.
PixelBuffer deflateGray(const GrayResiduals& residuals, bool isLast);

/// The Adler-32 checksum of that byte stream, from the residuals themselves.
std::uint32_t grayAdler(const GrayResiduals& residuals);

}  // namespace quarlin

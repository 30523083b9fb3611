#pragma once

#include "imaging/deflate/deflate_block.h"
#include "imaging/pixels/pixel_image.h"

#include <QByteArray>

#include <cstdint>
#include <span>

namespace quarlin {

/// Rows of filtered gray pixels of an opaque RGBA PNG: for each row the filter's number, and for each pixel
/// one residual, which its red, green and blue bytes share.
struct GrayResiduals {
    std::int64_t width = 0;
    std::int64_t rows = 0;
    /// `rows` filter numbers.
    std::span<const std::uint8_t> filters;
    /// The alpha residual of the first pixel of each row, `rows` bytes. That of every other pixel is 0.
    std::span<const std::uint8_t> firstAlphas;
    /// `rows * width` residuals, followed by `coderSpare` readable bytes.
    const std::uint8_t* values = nullptr;

    std::int64_t bytes() const { return rows * (width * bytesPerPixel + 1); }
};

/// Deflates the `bytes()` bytes of the rows that the residuals describe, and appends them to `output` as one
/// `DeflateBlock`, the last of the stream when `isLast`. A general compressor looks for matches at every
/// byte. This one does so at every pixel only, a quarter as many places, and spends the time on longer
/// matches.
void deflateGray(const GrayResiduals& residuals, bool isLast, QByteArray& output);

/// The Adler-32 checksum of the same bytes.
std::uint32_t grayAdler(const GrayResiduals& residuals);

}  // namespace quarlin

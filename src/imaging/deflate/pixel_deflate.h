#pragma once

#include "imaging/deflate/deflate_block.h"
#include "imaging/pixels/pixel_image.h"

#include <QByteArray>

#include <cstdint>

namespace quarlin {

/// Filtered rows of an RGBA PNG: for each row the filter's number, then the residuals of its pixels, four
/// bytes each.
struct FilteredRows {
    std::int64_t width = 0;
    std::int64_t rows = 0;
    /// `bytes()` bytes, followed by `coderSpare` readable ones.
    const std::uint8_t* data = nullptr;

    std::int64_t bytes() const { return rows * (width * bytesPerPixel + 1); }
};

/// Deflates filtered rows and appends them to `output` as one `DeflateBlock`, the last of the stream when
/// `isLast`. Matches begin at a pixel and are at least three whole pixels long: in pictures, other matches
/// are not worth the time to look for them.
void deflatePixels(const FilteredRows& filtered, bool isLast, QByteArray& output);

}  // namespace quarlin

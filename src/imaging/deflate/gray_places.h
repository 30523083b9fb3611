#pragma once

#include "imaging/deflate/deflate_block.h"
#include "imaging/deflate/gray_deflate.h"
#include "imaging/pixels/pixel_image.h"

#include <cstdint>

namespace quarlin {

/// Gray residuals where matches are looked for. The place of a pixel is the offset of its first byte in the
/// stream, divided by four: a row takes 4 * width + 1 bytes, so there is one place without a pixel after
/// every fourth row, and the distance of two pixels in bytes follows from their places and the remainders of
/// the division.
class GrayPlaces {
public:
    /// The longest match, in pixels.
    static constexpr unsigned longestMatch = 63;
    /// The farthest place back. The bytes there may be slightly too far for a match.
    static constexpr std::int64_t farthestBack = farthestMatch / bytesPerPixel;

    /// A match may be compared beyond the end of the row, eight bytes at a time.
    static constexpr std::size_t spare = longestMatch + 1 + 8;

    explicit GrayPlaces(const GrayResiduals& residuals);

    std::int64_t width() const { return m_width; }
    std::int64_t rows() const { return m_rows; }

    /// The place of the first pixel of a row.
    std::int64_t placeOf(std::int64_t row) const { return offsetOf(row) / bytesPerPixel; }
    unsigned remainderOf(std::int64_t row) const {
        return static_cast<unsigned>(offsetOf(row) % bytesPerPixel);
    }

    /// The residual at a place. `farthestBack` bytes before the first one and `spare` after the last one can
    /// be read.
    const std::uint8_t* value(std::int64_t place) const { return m_values.data() + farthestBack + place; }

    /// What restricts matches with a place, readable as far back as `value`. The upper two bits are the
    /// remainder of its row. The lower six bits are how many pixels a match that begins here must be shorter
    /// than `longestMatch`, so that it ends with the row. No match can begin at the first pixel of a row,
    /// whose alpha may differ from that of the others.
    const std::uint8_t* restriction(std::int64_t place) const {
        return m_restrictions.data() + farthestBack + place;
    }

private:
    std::int64_t offsetOf(std::int64_t row) const { return row * (m_width * bytesPerPixel + 1) + 1; }

    std::int64_t m_width;
    std::int64_t m_rows;
    PixelBuffer m_values;
    PixelBuffer m_restrictions;
};

}  // namespace quarlin

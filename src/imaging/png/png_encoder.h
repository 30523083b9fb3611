#pragma once

#include "imaging/base/parallel.h"
#include "imaging/pixels/pixel_image.h"

#include <QByteArray>

#include <cstdint>
#include <vector>

namespace quarlin {

/// Makes an 8-bit RGBA PNG, tagged sRGB with straight alpha, from premultiplied rows.
///
/// The image is cut into strips of rows that are filtered and deflated each for itself, so that strips may be
/// encoded on any thread and in any order: the file's bytes depend on the pixels alone.
class PngEncoder {
public:
    /// For an image of `width` x `height` pixels, both positive.
    PngEncoder(std::int64_t width, std::int64_t height);

    /// How the image is cut.
    RowStrips strips() const { return {m_height, m_rowsPerStrip}; }

    /// Encodes a strip from its rows, `width * 4` bytes each. Safe to call for different strips at once.
    void encodeStrip(std::int64_t strip, const std::uint8_t* rows);

    /// Encodes an opaque gray strip from one byte a pixel; gives what `encodeStrip` gives for the same
    /// pixels.
    void encodeGrayStrip(std::int64_t strip, const std::uint8_t* gray);

    /// What stands before the strips in the file.
    QByteArray beginning() const;
    /// What an encoded strip takes in the file, which is made of the chunks of all strips in order.
    const QByteArray& chunk(std::int64_t strip) const {
        return m_strips[static_cast<std::size_t>(strip)].chunk;
    }
    /// Once every strip is encoded: what stands behind them.
    QByteArray ending() const;

private:
    void storeStrip(std::int64_t strip, QByteArrayView deflated, std::uint32_t adler);
    bool isLast(std::int64_t strip) const { return strip == strips().count() - 1; }

    struct Strip {
        /// A whole IDAT chunk.
        QByteArray chunk;
        /// The checksum of what the chunk inflates to.
        std::uint32_t adler = 1;
    };

    std::int64_t m_width;
    std::int64_t m_height;
    std::int64_t m_rowsPerStrip;
    std::vector<Strip> m_strips;
};

}  // namespace quarlin

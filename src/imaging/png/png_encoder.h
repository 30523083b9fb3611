#pragma once

#include "imaging/base/row_strips.h"
#include "imaging/pixels/pixel_image.h"

#include <QByteArray>

#include <cstdint>
#include <vector>

namespace quarlin {

/// Makes an 8-bit RGBA PNG, tagged sRGB with straight alpha, from premultiplied rows.
///
/// The image is cut into strips of rows that are filtered and deflated independently of each other, so that
/// they may be encoded on any thread and in any order. The bytes of the file depend on the pixels alone.
class PngEncoder {
public:
    /// For an image of `width` x `height` pixels, both positive.
    PngEncoder(std::int64_t width, std::int64_t height);

    /// The strips of an image of that size.
    static RowStrips stripsOf(std::int64_t width, std::int64_t height);
    const RowStrips& strips() const { return m_strips; }

    /// Encodes a strip from its rows, `width * 4` bytes each. Different strips may be encoded at the same
    /// time.
    void encodeStrip(std::int64_t strip, const std::uint8_t* rows);

    /// Encodes an opaque gray strip from one byte per pixel; the result is the same as that of `encodeStrip`.
    void encodeGrayStrip(std::int64_t strip, const std::uint8_t* gray);

    /// The bytes of the file before the strips.
    QByteArray beginning() const;
    /// The bytes of an encoded strip; those of all strips follow each other in order.
    const QByteArray& chunk(std::int64_t strip) const {
        return m_encoded[static_cast<std::size_t>(strip)].chunk;
    }
    /// Once every strip is encoded: the bytes of the file after the strips.
    QByteArray ending() const;

private:
    bool isLast(std::int64_t strip) const { return strip == m_strips.count() - 1; }

    struct EncodedStrip {
        /// A whole IDAT chunk.
        QByteArray chunk;
        /// The checksum of the bytes that the chunk inflates to.
        std::uint32_t adler = 1;
    };

    std::int64_t m_width;
    std::int64_t m_height;
    RowStrips m_strips;
    std::vector<EncodedStrip> m_encoded;
};

}  // namespace quarlin

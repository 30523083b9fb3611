#pragma once

#include "imaging/base/row_strips.h"
#include "imaging/pixels/pixel_image.h"

#include <QByteArray>

#include <cstdint>

namespace quarlin {

/// An encoded strip of a PNG.
struct PngStrip {
    /// A whole IDAT chunk.
    QByteArray chunk;
    /// The number and the Adler checksum of the bytes that the chunk inflates to.
    std::int64_t inflatedSize = 0;
    std::uint32_t adler = 1;
};

/// Makes an 8-bit RGBA PNG, tagged sRGB with straight alpha, from premultiplied rows.
///
/// The image is cut into strips of rows that are filtered and deflated independently of each other, so that
/// they may be encoded on any thread and in any order. The bytes of the file depend on the pixels alone: they
/// are `beginning()`, the chunks of the strips in order, and `ending()`.
class PngEncoder {
public:
    /// For an image of `width` x `height` pixels, both positive.
    PngEncoder(std::int64_t width, std::int64_t height);

    std::int64_t width() const { return m_width; }
    std::int64_t height() const { return m_height; }
    const RowStrips& strips() const { return m_strips; }

    /// Encodes a strip from its rows, `width * 4` bytes each.
    PngStrip encodeStrip(std::int64_t strip, const std::uint8_t* rows) const;

    /// Encodes an opaque gray strip from one byte per pixel; the result is the same as that of `encodeStrip`.
    PngStrip encodeGrayStrip(std::int64_t strip, const std::uint8_t* gray) const;

    QByteArray beginning() const;
    /// `adler` is the checksum of all strips, by `extendedAdler`.
    static QByteArray ending(std::uint32_t adler);

private:
    bool isLast(std::int64_t strip) const { return strip == m_strips.count() - 1; }

    std::int64_t m_width;
    std::int64_t m_height;
    RowStrips m_strips;
};

/// The checksum of the bytes before, 1 if there are none, and of those of `strip` after them.
std::uint32_t extendedAdler(std::uint32_t before, const PngStrip& strip);

}  // namespace quarlin

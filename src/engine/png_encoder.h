#pragma once

#include "parallel.h"
#include "pixel_image.h"

#include <QByteArray>

#include <cstdint>
#include <vector>

namespace quarlin {

/// Makes an 8-bit RGBA PNG, tagged sRGB with straight alpha, from premultiplied rows.
///
/// The image is cut into bands of rows that are filtered and deflated each for itself, so that bands may be
/// encoded on any thread and in any order: the file's bytes depend on the pixels alone.
class PngEncoder {
public:
    /// For an image of `width` x `height` pixels, both positive.
    PngEncoder(std::int64_t width, std::int64_t height);

    /// How the image is cut.
    RowBands bands() const { return {m_height, m_rowsPerBand}; }

    /// Encodes a band from its rows, `width * 4` bytes each. Safe to call for different bands at once.
    void encodeBand(std::int64_t band, const std::uint8_t* rows);

    /// Encodes an opaque grey band from one byte a pixel; gives what `encodeBand` gives for the same pixels.
    void encodeGreyBand(std::int64_t band, const std::uint8_t* grey);

    /// What stands before the bands in the file.
    QByteArray beginning() const;
    /// What an encoded band takes in the file, which is made of the chunks of all bands in order.
    const QByteArray& chunk(std::int64_t band) const { return m_bands[static_cast<std::size_t>(band)].chunk; }
    /// Once every band is encoded: what stands behind them.
    QByteArray ending() const;

private:
    void storeBand(std::int64_t band, QByteArrayView deflated, std::uint32_t adler);
    bool isLast(std::int64_t band) const { return band == bands().count() - 1; }

    struct Band {
        /// A whole IDAT chunk.
        QByteArray chunk;
        /// The checksum of what the chunk inflates to.
        std::uint32_t adler = 1;
    };

    std::int64_t m_width;
    std::int64_t m_height;
    std::int64_t m_rowsPerBand;
    std::vector<Band> m_bands;
};

}  // namespace quarlin

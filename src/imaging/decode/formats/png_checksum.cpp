#include "imaging/decode/formats/png_checksum.h"

#include "imaging/deflate/inflate_stream.h"
#include "imaging/pixels/pixel_image.h"
#include "imaging/png/png_signature.h"

#include <QtEndian>

#include <algorithm>
#include <cstdint>
#include <utility>

namespace quarlin {

namespace {

constexpr qsizetype chunkOverhead = 12;
constexpr qsizetype headerSize = 13;

/// Takes the next piece of the pixels' stream off the chunks, whatever else is wrong with the file; an empty
/// one at the end.
QByteArrayView takePixelPiece(QByteArrayView& chunks) {
    while (chunks.size() >= chunkOverhead) {
        const auto length = static_cast<qsizetype>(qFromBigEndian<std::uint32_t>(chunks.data()));
        if (length > chunks.size() - chunkOverhead) {
            break;
        }
        const QByteArrayView chunk = chunks.first(length + chunkOverhead);
        chunks = chunks.sliced(chunk.size());
        if (chunk.sliced(4, 4) == "IDAT" && length > 0) {
            return chunk.sliced(8, length);
        }
    }
    return {};
}

/// No file of this size has more bytes of filtered rows: 16 bits of four channels, and the filters of all
/// passes of an interlaced picture.
std::int64_t mostFilteredBytes(std::uint32_t width, std::uint32_t height) {
    constexpr std::int64_t bytesPerPixel16 = 8;
    constexpr std::int64_t filtersPerRow = 3;
    return std::int64_t{width} * height * bytesPerPixel16 + std::int64_t{height} * filtersPerRow +
           filtersPerRow;
}

}  // namespace

bool hasWrongPixelChecksum(const QByteArray& png) {
    const qsizetype header = pngSignature.size() + 8;
    if (png.size() < header + headerSize) {
        return false;
    }
    InflateStream stream([chunks = QByteArrayView(png).sliced(pngSignature.size())]() mutable {
        return takePixelPiece(chunks);
    });
    std::int64_t left = mostFilteredBytes(qFromBigEndian<std::uint32_t>(png.constData() + header),
                                          qFromBigEndian<std::uint32_t>(png.constData() + header + 4));
    PixelBuffer part(std::size_t{1} << 16);
    while (left > 0 && stream.read(part)) {
        left -= static_cast<std::int64_t>(part.size());
    }
    return stream.hasWrongChecksum();
}

}  // namespace quarlin

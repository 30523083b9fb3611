#include "imaging/decode/formats/png_checksum.h"

#include "imaging/base/pixel_size.h"
#include "imaging/deflate/inflate_stream.h"
#include "imaging/pixels/pixel_image.h"
#include "imaging/png/png_signature.h"

#include <QtEndian>

#include <algorithm>
#include <cstdint>

namespace quarlin {

namespace {

constexpr qsizetype chunkOverhead = 12;
constexpr qsizetype headerSize = 13;

/// Takes the data of the next chunk of pixels that has any off the front of `rest`, whatever else is wrong
/// with the file; empty if there is none.
QByteArrayView takePixels(QByteArrayView& rest) {
    while (rest.size() >= chunkOverhead) {
        const auto length = static_cast<qsizetype>(qFromBigEndian<std::uint32_t>(rest.data()));
        if (length > rest.size() - chunkOverhead) {
            break;
        }
        const QByteArrayView chunk = rest;
        rest = rest.sliced(length + chunkOverhead);
        if (chunk.sliced(4, 4) == "IDAT" && length > 0) {
            return chunk.sliced(8, length);
        }
    }
    return {};
}

/// No file of this size has more bytes of filtered rows: 16 bits of four channels, and the filters of all
/// passes of an interlaced picture.
std::int64_t mostFilteredBytes(std::int64_t width, std::int64_t height) {
    constexpr std::int64_t bytesPerPixel16 = 8;
    constexpr std::int64_t filtersPerRow = 3;
    return width * height * bytesPerPixel16 + height * filtersPerRow + filtersPerRow;
}

}  // namespace

bool hasDamagedPixelStream(const QByteArray& png) {
    const qsizetype header = pngSignature.size() + 8;
    if (png.size() < header + headerSize) {
        return false;
    }
    const auto width = qFromBigEndian<std::uint32_t>(png.constData() + header);
    const auto height = qFromBigEndian<std::uint32_t>(png.constData() + header + 4);
    if (!isUsableSize(width, height)) {
        return false;
    }
    QByteArrayView rest = QByteArrayView(png).sliced(pngSignature.size());
    InflateStream stream([&rest] { return takePixels(rest); });
    std::int64_t left = mostFilteredBytes(width, height);
    PixelBuffer part(std::size_t{1} << 16);
    while (left > 0 && stream.read(part)) {
        left -= static_cast<std::int64_t>(part.size());
    }
    return stream.hasWrongChecksum() || stream.isCut();
}

}  // namespace quarlin

#include "imaging/decode/plain_png_decoder.h"

#include "imaging/base/parallel.h"
#include "imaging/base/row_strips.h"
#include "imaging/decode/convert_pixels.h"
#include "imaging/deflate/inflate_stream.h"
#include "imaging/pixels/image_view.h"
#include "imaging/png/unfilter.h"

#include <QtEndian>

#include <isa-l/crc.h>

#include <algorithm>
#include <array>
#include <optional>
#include <string_view>
#include <vector>

namespace quarlin {

namespace {

/// One chunk of the file; its checksum is right.
struct Chunk {
    std::string_view type;
    QByteArrayView data;
};

/// Takes chunks off `rest`, which begins behind the signature; nothing where no whole, intact one follows.
std::optional<Chunk> takeChunk(QByteArrayView& rest) {
    constexpr qsizetype overhead = 12;
    if (rest.size() < overhead) {
        return std::nullopt;
    }
    const auto length = static_cast<qsizetype>(qFromBigEndian<quint32>(rest.data()));
    if (length > rest.size() - overhead) {
        return std::nullopt;
    }
    const QByteArrayView checked = rest.sliced(4, length + 4);
    const quint32 checksum = crc32_gzip_refl(0, reinterpret_cast<const unsigned char*>(checked.data()),
                                             static_cast<std::uint64_t>(checked.size()));
    if (checksum != qFromBigEndian<quint32>(rest.data() + length + 8)) {
        return std::nullopt;
    }
    rest = rest.sliced(length + overhead);
    return Chunk{{checked.data(), 4}, checked.sliced(4)};
}

/// Chunks that say nothing about the pixels. Any other, known or not, is left to the general decoder.
bool isWithoutEffect(const Chunk& chunk) {
    constexpr std::array<std::string_view, 9> types{"sRGB", "cHRM", "pHYs", "tEXt", "zTXt",
                                                    "iTXt", "tIME", "bKGD", "eXIf"};
    constexpr quint32 gammaOfSRGB = 45455;
    return std::find(types.begin(), types.end(), chunk.type) != types.end() ||
           (chunk.type == "gAMA" && chunk.data.size() == 4 &&
            qFromBigEndian<quint32>(chunk.data.data()) == gammaOfSRGB);
}

struct Header {
    std::int64_t width = 0;
    std::int64_t height = 0;
    int samples = 0;

    std::size_t rowSize() const { return static_cast<std::size_t>(width * samples); }
    /// What the pixels inflate to: rows, each behind the number of its filter.
    std::size_t filteredSize() const { return (rowSize() + 1) * static_cast<std::size_t>(height); }
};

std::optional<Header> readHeader(const Chunk& chunk) {
    if (chunk.type != "IHDR" || chunk.data.size() != 13) {
        return std::nullopt;
    }
    const auto byteAt = [&](qsizetype index) { return static_cast<std::uint8_t>(chunk.data[index]); };
    Header header{qFromBigEndian<quint32>(chunk.data.data()), qFromBigEndian<quint32>(chunk.data.data() + 4),
                  0};
    constexpr std::uint8_t bitDepth = 8;
    constexpr std::array<int, 7> samplesOfColorType{1, 0, 3, 0, 2, 0, 4};
    const std::uint8_t colorType = byteAt(9);
    const bool isPlain = byteAt(8) == bitDepth && colorType < samplesOfColorType.size() && byteAt(10) == 0 &&
                         byteAt(11) == 0 && byteAt(12) == 0;
    if (!isPlain || !isUsableSize(header.width, header.height)) {
        return std::nullopt;
    }
    header.samples = samplesOfColorType[colorType];
    return header.samples > 0 ? std::optional(header) : std::nullopt;
}

struct PlainPng {
    Header header;
    /// The zlib stream, as the chunks cut it.
    InflateStream::Pieces stream;

    bool mayHoldItsPixels() const {
        // Deflate makes nothing smaller than this; a header that claims more is not worth allocating for.
        constexpr std::size_t largestRatio = 1032;
        std::size_t streamSize = 0;
        for (const QByteArrayView piece : stream) {
            streamSize += static_cast<std::size_t>(piece.size());
        }
        return header.filteredSize() / largestRatio <= streamSize;
    }
};

std::optional<PlainPng> readPlainPng(QByteArrayView bytes) {
    constexpr std::string_view signature("\x89PNG\r\n\x1A\n", 8);
    if (!bytes.startsWith(QByteArrayView(signature.data(), signature.size()))) {
        return std::nullopt;
    }
    QByteArrayView rest = bytes.sliced(signature.size());
    const std::optional<Chunk> first = takeChunk(rest);
    const std::optional<Header> header = first ? readHeader(*first) : std::nullopt;
    if (!header) {
        return std::nullopt;
    }
    PlainPng png{*header, {}};
    bool pixelsHaveEnded = false;
    while (const std::optional<Chunk> chunk = takeChunk(rest)) {
        if (chunk->type == "IEND") {
            return png;
        }
        if (chunk->type == "IDAT") {
            if (pixelsHaveEnded) {
                return std::nullopt;
            }
            png.stream.push_back(chunk->data);
        } else {
            pixelsHaveEnded = !png.stream.empty();
            if (!isWithoutEffect(*chunk)) {
                return std::nullopt;
            }
        }
    }
    return std::nullopt;
}

/// Turns filtered rows back into samples and these into pixels, the rows one after the other.
template <int samples>
class RowDecoder {
public:
    RowDecoder(const Header& header, QImage& image)
        : m_width(header.width),
          m_rowSize(header.rowSize()),
          m_above(m_rowSize + unfilterSpare, 0),
          m_output(image.bits()) {}

    /// The next `count` rows, each behind its filter's number; false when there is no such filter.
    bool decode(std::uint8_t* filtered, std::size_t count) {
        const std::uint8_t* above = m_above.data();
        std::uint8_t* row = filtered + 1;
        for (std::size_t index = 0; index < count; ++index) {
            if (!unfilterPngRow<samples>(row[-1], {row, m_rowSize}, above)) {
                return false;
            }
            storePixels<std::uint8_t, samples>(row, m_width, m_output);
            m_output += m_width * bytesPerPixel;
            above = row;
            row += m_rowSize + 1;
        }
        std::copy_n(above, m_rowSize, m_above.begin());
        return true;
    }

private:
    std::int64_t m_width;
    std::size_t m_rowSize;
    PixelBuffer m_above;
    std::uint8_t* m_output;
};

/// Inflates a few rows at a time, so that they are still in the processor's cache when they become pixels; in
/// a large picture the next ones are inflated meanwhile.
template <int samples>
QImage decodeRows(const PlainPng& png) {
    const Header& header = png.header;
    QImage image(static_cast<int>(header.width), static_cast<int>(header.height), pixelFormat);
    if (image.isNull()) {
        return {};
    }
    constexpr std::int64_t bytesAtOnce = 1 << 17;
    const auto filteredRowSize = static_cast<std::int64_t>(header.rowSize()) + 1;
    const RowStrips strips(header.height, std::max<std::int64_t>(1, bytesAtOnce / filteredRowSize));
    constexpr std::int64_t bufferCount = 4;
    const std::int64_t bufferSize = std::min(strips[0].count, header.height) * filteredRowSize;
    std::vector<PixelBuffer> buffers(static_cast<std::size_t>(std::min(bufferCount, strips.count())),
                                     PixelBuffer(static_cast<std::size_t>(bufferSize) + unfilterSpare));
    const auto bufferOf = [&](std::int64_t strip) -> PixelBuffer& {
        return buffers[static_cast<std::size_t>(strip) % buffers.size()];
    };
    InflateStream stream(png.stream);
    const auto inflate = [&](std::int64_t strip) {
        const auto size = static_cast<std::size_t>(strips[strip].count * filteredRowSize);
        return stream.read({bufferOf(strip).data(), size});
    };
    RowDecoder<samples> rows(header, image);
    const auto decode = [&](std::int64_t strip) {
        return rows.decode(bufferOf(strip).data(), static_cast<std::size_t>(strips[strip].count));
    };
    const bool isWhole = doInStep(strips.count(), bufferCount, inflate, decode) && stream.hasEnded();
    return isWhole ? image : QImage();
}

}  // namespace

QImage decodePlainPng(const QByteArray& bytes) {
    const std::optional<PlainPng> png = readPlainPng(bytes);
    if (!png || !png->mayHoldItsPixels()) {
        return {};
    }
    switch (png->header.samples) {
        case 1:
            return decodeRows<1>(*png);
        case 2:
            return decodeRows<2>(*png);
        case 3:
            return decodeRows<3>(*png);
        default:
            return decodeRows<4>(*png);
    }
}

}  // namespace quarlin

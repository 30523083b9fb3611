#include "imaging/decode/formats/plain_png_reader.h"

#include "imaging/base/pixel_size.h"
#include "imaging/decode/convert_pixels.h"
#include "imaging/decode/decode_error.h"
#include "imaging/decode/two_step_reader.h"
#include "imaging/deflate/inflate_stream.h"
#include "imaging/png/png_signature.h"
#include "imaging/png/unfilter.h"

#include <QtEndian>

#include <isa-l/crc.h>

#include <algorithm>
#include <array>
#include <optional>
#include <string_view>
#include <utility>

namespace quarlin {

namespace {

/// One chunk of the file, whose checksum is right.
struct Chunk {
    std::string_view type;
    QByteArrayView data;
};

/// Takes the next chunk off `rest`, which starts after the signature; nothing if no whole, intact one
/// follows.
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

/// Whether a chunk has no effect on the pixels. Any other, known or not, is left to the general decoder.
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
    int channels = 0;

    std::size_t rowSize() const { return static_cast<std::size_t>(width * channels); }
    /// The size of the inflated pixels: rows, each after the number of its filter.
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
    constexpr std::array<int, 7> channelsOfColorType{1, 0, 3, 0, 2, 0, 4};
    const std::uint8_t colorType = byteAt(9);
    const bool isPlain = byteAt(8) == bitDepth && colorType < channelsOfColorType.size() && byteAt(10) == 0 &&
                         byteAt(11) == 0 && byteAt(12) == 0;
    if (!isPlain || !isUsableSize(header.width, header.height)) {
        return std::nullopt;
    }
    header.channels = channelsOfColorType[colorType];
    return header.channels > 0 ? std::optional(header) : std::nullopt;
}

struct PlainPng {
    Header header;
    /// The zlib stream, in the pieces that the chunks hold.
    InflateStream::Pieces stream;

    bool mayHoldItsPixels() const {
        // Deflate compresses by no more than this: a header that claims more is wrong.
        constexpr std::size_t largestRatio = 1032;
        std::size_t streamSize = 0;
        for (const QByteArrayView piece : stream) {
            streamSize += static_cast<std::size_t>(piece.size());
        }
        return header.filteredSize() / largestRatio <= streamSize;
    }
};

std::optional<PlainPng> readPlainPng(QByteArrayView bytes) {
    if (!bytes.startsWith(QByteArrayView(pngSignature))) {
        return std::nullopt;
    }
    QByteArrayView rest = bytes.sliced(pngSignature.size());
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

/// Inflates filtered rows, each after the number of its filter, and then turns them into pixels.
template <int channels>
class PlainPngReader final : public TwoStepReader {
public:
    PlainPngReader(QByteArray bytes, const PlainPng& png)
        : TwoStepReader(png.header.width, png.header.height,
                        static_cast<std::int64_t>(png.header.rowSize()) + 1),
          m_bytes(std::move(bytes)),
          m_stream(png.stream),
          m_rowSize(png.header.rowSize()),
          m_above(m_rowSize + unfilterSpare, 0) {}

    bool keepColorsStraight() override {
        m_isStraight = true;
        return true;
    }

private:
    static_assert(spareBytes >= unfilterSpare);

    void decodeRows(std::int64_t count, std::uint8_t* samples) override {
        m_inflatedRows += count;
        if (!m_stream.read({samples, static_cast<std::size_t>(count * samplesPerRow())}) ||
            (m_inflatedRows == height() && !m_stream.hasEnded())) {
            throw DecodeError(DecodeProblem::damaged);
        }
    }

    void convertRows(std::int64_t count, std::uint8_t* samples, std::uint8_t* pixels) override {
        const std::uint8_t* above = m_above.data();
        std::uint8_t* row = samples + 1;
        for (std::int64_t index = 0; index < count; ++index) {
            if (!unfilterPngRow<channels>(row[-1], {row, m_rowSize}, above)) {
                throw DecodeError(DecodeProblem::damaged);
            }
            std::uint8_t* const output = pixels + index * bytesPerRow();
            if (m_isStraight) {
                spreadPixels<std::uint8_t, channels>(row, width(), output);
            } else {
                convertPixels<std::uint8_t, channels>(row, width(), output);
            }
            above = row;
            row += m_rowSize + 1;
        }
        std::copy_n(above, m_rowSize, m_above.begin());
    }

    /// The stream views these.
    QByteArray m_bytes;
    InflateStream m_stream;
    std::int64_t m_inflatedRows = 0;
    std::size_t m_rowSize;
    /// The last row that was converted, with room to spare.
    PixelBuffer m_above;
    bool m_isStraight = false;
};

}  // namespace

std::unique_ptr<RowReader> openPlainPng(const QByteArray& bytes) {
    const std::optional<PlainPng> png = readPlainPng(bytes);
    if (!png || !png->mayHoldItsPixels()) {
        return nullptr;
    }
    switch (png->header.channels) {
        case 1:
            return std::make_unique<PlainPngReader<1>>(bytes, *png);
        case 2:
            return std::make_unique<PlainPngReader<2>>(bytes, *png);
        case 3:
            return std::make_unique<PlainPngReader<3>>(bytes, *png);
        default:
            return std::make_unique<PlainPngReader<4>>(bytes, *png);
    }
}

}  // namespace quarlin

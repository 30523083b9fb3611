#include "imaging/decode/formats/plain_png_reader.h"

#include "imaging/base/pixel_size.h"
#include "imaging/decode/decode_error.h"
#include "imaging/decode/formats/png_chunk_reader.h"
#include "imaging/decode/formats/png_reader.h"
#include "imaging/decode/two_step_reader.h"
#include "imaging/deflate/inflate_stream.h"
#include "imaging/pixels/convert_pixels.h"
#include "imaging/png/png_signature.h"
#include "imaging/png/unfilter.h"

#include <QtEndian>

#include <algorithm>
#include <array>
#include <optional>
#include <string_view>
#include <utility>

namespace quarlin {

namespace {

/// Whether a chunk has no effect on the pixels. Any other, known or not, is left to the general decoder.
/// Reads the data of the chunk.
bool isWithoutEffect(PngChunkReader& chunks) {
    constexpr std::array<std::string_view, 9> types{"sRGB", "cHRM", "pHYs", "tEXt", "zTXt",
                                                    "iTXt", "tIME", "bKGD", "eXIf"};
    constexpr std::uint32_t gammaOfSRGB = 45455;
    if (chunks.type() == "gAMA") {
        const QByteArray data = chunks.data(4);
        return data.size() == 4 && qFromBigEndian<std::uint32_t>(data.constData()) == gammaOfSRGB;
    }
    const bool isKnown = std::any_of(types.begin(), types.end(), [&](std::string_view type) {
        return chunks.type() == QByteArrayView(type);
    });
    if (isKnown) {
        chunks.skipData();
    }
    return isKnown;
}

struct Header {
    std::int64_t width = 0;
    std::int64_t height = 0;
    int channels = 0;

    std::size_t rowSize() const { return static_cast<std::size_t>(width * channels); }
    /// Whether a file of so many bytes can hold the pixels: deflate compresses by no more than this ratio.
    /// The pixels are rows, each after the number of its filter.
    bool fitsFile(std::int64_t fileSize) const {
        constexpr std::int64_t largestRatio = 1032;
        return (static_cast<std::int64_t>(rowSize()) + 1) * height / largestRatio <= fileSize;
    }
};

/// The header in the first chunk, if it is that of a plain PNG file.
std::optional<Header> readHeader(PngChunkReader& chunks) {
    constexpr std::int64_t headerSize = 13;
    if (!chunks.advance() || chunks.type() != "IHDR" || chunks.dataLeft() != headerSize) {
        return std::nullopt;
    }
    const QByteArray data = chunks.data(headerSize);
    const auto byteAt = [&](qsizetype index) { return static_cast<std::uint8_t>(data[index]); };
    Header header{qFromBigEndian<std::uint32_t>(data.constData()),
                  qFromBigEndian<std::uint32_t>(data.constData() + 4), 0};
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

/// Goes to the first chunk of pixels. False if there is none, or if the pixels depend on a chunk before it.
bool findPixels(PngChunkReader& chunks) {
    while (chunks.advance()) {
        if (chunks.type() == "IDAT") {
            return true;
        }
        if (!isWithoutEffect(chunks)) {
            return false;
        }
    }
    return false;
}

/// The zlib stream of the pixels, which is cut into consecutive chunks. Throws `DecodeError` for a wrong
/// checksum.
class PixelStream {
public:
    /// `chunks` is at the first chunk of pixels.
    explicit PixelStream(PngChunkReader chunks) : m_chunks(std::move(chunks)) {}

    /// The next piece of the stream; empty at its end.
    QByteArrayView next() {
        while (!m_hasEnded) {
            if (const QByteArrayView block = m_chunks.nextBlock(); !block.isEmpty()) {
                return block;
            }
            m_isFileCut = !m_chunks.advance();
            m_hasEnded = m_isFileCut || m_chunks.type() != "IDAT";
        }
        return {};
    }

    /// Once the stream has ended: whether only chunks without effect follow, up to the end of the file.
    bool isFileComplete() {
        while (!m_isFileCut && m_chunks.type() != "IEND") {
            m_isFileCut = !isWithoutEffect(m_chunks) || !m_chunks.advance();
        }
        return !m_isFileCut;
    }

private:
    PngChunkReader m_chunks;
    bool m_hasEnded = false;
    bool m_isFileCut = false;
};

/// Inflates filtered rows, each after the number of its filter, and then turns them into pixels.
template <int channels>
class PlainPngReader final : public TwoStepReader {
public:
    /// `chunks` is at the first chunk of pixels.
    PlainPngReader(const Header& header, PngChunkReader chunks)
        : TwoStepReader(header.width, header.height, static_cast<std::int64_t>(header.rowSize()) + 1),
          m_pixels(std::move(chunks)),
          m_stream([this] { return m_pixels.next(); }),
          m_rowSize(header.rowSize()),
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
            (m_inflatedRows == height() && !(m_stream.hasEnded() && m_pixels.isFileComplete()))) {
            throw DecodeError(DecodeProblem::damaged);
        }
    }

    void convertRows(std::int64_t count, std::uint8_t* samples, std::uint8_t* pixels) override {
        const std::uint8_t* above = m_above.data();
        std::uint8_t* row = samples + 1;
        for (std::int64_t index = 0; index < count;) {
            const std::int64_t done = unfilterPngRows(channels, row, m_rowSize, count - index, above);
            if (done == 0) {
                throw DecodeError(DecodeProblem::damaged);
            }
            for (const std::int64_t end = index + done; index < end; ++index) {
                std::uint8_t* const output = pixels + index * bytesPerRow();
                if (m_isStraight) {
                    spreadPixels<std::uint8_t, channels>(row, width(), output);
                } else {
                    convertPixels<std::uint8_t, channels>(row, width(), output);
                }
                above = row;
                row += m_rowSize + 1;
            }
        }
        std::copy_n(above, m_rowSize, m_above.begin());
    }

    PixelStream m_pixels;
    InflateStream m_stream;
    std::int64_t m_inflatedRows = 0;
    std::size_t m_rowSize;
    /// The last row that was converted, with room to spare.
    PixelBuffer m_above;
    bool m_isStraight = false;
};

}  // namespace

std::unique_ptr<RowReader> openPlainPng(const std::shared_ptr<ByteSource>& source) {
    if (!isPng(source->part(0, static_cast<std::int64_t>(pngSignature.size())))) {
        return nullptr;
    }
    PngChunkReader chunks(source);
    try {
        const std::optional<Header> header = readHeader(chunks);
        if (!header || !header->fitsFile(source->size()) || !findPixels(chunks)) {
            return nullptr;
        }
        switch (header->channels) {
            case 1:
                return std::make_unique<PlainPngReader<1>>(*header, std::move(chunks));
            case 2:
                return std::make_unique<PlainPngReader<2>>(*header, std::move(chunks));
            case 3:
                return std::make_unique<PlainPngReader<3>>(*header, std::move(chunks));
            default:
                return std::make_unique<PlainPngReader<4>>(*header, std::move(chunks));
        }
    } catch (const DecodeError&) {
        return nullptr;
    }
}

}  // namespace quarlin

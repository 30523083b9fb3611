#include "png_encoder.h"

#include "png_filter.h"
#include "premultiply.h"

#include <QtEndian>

#include <isa-l/crc.h>
#include <isa-l/igzip_lib.h>
#include <zlib.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <stdexcept>

namespace quarlin {

namespace {

/// What a band should hold before compression: large enough to compress as well as the whole would, small
/// enough to keep every core busy.
constexpr std::int64_t bandBytes = std::int64_t{1} << 20;

/// A chunk of the PNG standard: length, type, data, checksum of type and data.
QByteArray makeChunk(const char* type, QByteArrayView data) {
    constexpr qsizetype dataOffset = 8;
    QByteArray chunk(dataOffset + data.size() + 4, Qt::Uninitialized);
    qToBigEndian(static_cast<quint32>(data.size()), chunk.data());
    std::memcpy(chunk.data() + 4, type, 4);
    std::copy(data.begin(), data.end(), chunk.begin() + dataOffset);
    const auto* checked = reinterpret_cast<const unsigned char*>(chunk.constData() + 4);
    const quint32 checksum = crc32_gzip_refl(0, checked, static_cast<std::uint64_t>(data.size()) + 4);
    qToBigEndian(checksum, chunk.data() + dataOffset + data.size());
    return chunk;
}

template <typename Value>
QByteArray bigEndian(Value value) {
    QByteArray bytes(sizeof(Value), Qt::Uninitialized);
    qToBigEndian(value, bytes.data());
    return bytes;
}

bool isOpaque(std::span<const std::uint8_t> row) {
    std::uint8_t all = 255;
    for (std::size_t index = 3; index < row.size(); index += 4) {
        all = static_cast<std::uint8_t>(all & row[index]);
    }
    return all == 255;
}

/// `unpremultiplied` of every colour and alpha: a row of 256 colours per alpha.
const std::array<std::array<std::uint8_t, 256>, 256>& straightColours() {
    static const auto table = [] {
        std::array<std::array<std::uint8_t, 256>, 256> colours{};
        for (unsigned alpha = 0; alpha < 256; ++alpha) {
            for (unsigned colour = 0; colour < 256; ++colour) {
                colours[alpha][colour] =
                    unpremultiplied(static_cast<std::uint8_t>(colour), static_cast<std::uint8_t>(alpha));
            }
        }
        return colours;
    }();
    return table;
}

void storeStraight(std::span<const std::uint8_t> row, std::uint8_t* output) {
    const auto& table = straightColours();
    for (std::size_t index = 0; index < row.size(); index += 4) {
        const auto& colours = table[row[index + 3]];
        output[index] = colours[row[index]];
        output[index + 1] = colours[row[index + 1]];
        output[index + 2] = colours[row[index + 2]];
        output[index + 3] = row[index + 3];
    }
}

/// Gives the rows of a band with straight alpha; an opaque row is given as it stands.
class StraightRows {
public:
    StraightRows(const std::uint8_t* rows, std::size_t rowSize)
        : m_rows(rows), m_rowSize(rowSize), m_buffers{PixelBuffer(rowSize), PixelBuffer(rowSize)} {}

    /// Row `index`; valid until the row after the next is asked for.
    std::span<const std::uint8_t> row(std::int64_t index) {
        const std::span row(m_rows + static_cast<std::size_t>(index) * m_rowSize, m_rowSize);
        if (isOpaque(row)) {
            return row;
        }
        PixelBuffer& buffer = m_buffers[static_cast<std::size_t>(index % 2)];
        storeStraight(row, buffer.data());
        return buffer;
    }

private:
    const std::uint8_t* m_rows;
    std::size_t m_rowSize;
    std::array<PixelBuffer, 2> m_buffers;
};

/// Deflates `input` to `output` and returns the number of bytes written. The stream ends on a byte's edge,
/// with nothing that a following band could refer to; the last band also ends the stream.
std::size_t deflateBand(std::span<std::uint8_t> input, std::span<std::uint8_t> output, bool isLast) {
    isal_zstream stream;
    isal_deflate_init(&stream);
    PixelBuffer workspace(ISAL_DEF_LVL3_DEFAULT);
    stream.level = 3;
    stream.level_buf = workspace.data();
    stream.level_buf_size = static_cast<std::uint32_t>(workspace.size());
    stream.flush = FULL_FLUSH;
    stream.end_of_stream = isLast ? 1 : 0;
    stream.next_in = input.data();
    stream.avail_in = static_cast<std::uint32_t>(input.size());
    stream.next_out = output.data();
    stream.avail_out = static_cast<std::uint32_t>(output.size());
    if (isal_deflate(&stream) != COMP_OK || stream.avail_in != 0 || stream.avail_out == 0) {
        throw std::logic_error("deflate needs more room than a band can take");
    }
    return output.size() - stream.avail_out;
}

}  // namespace

PngEncoder::PngEncoder(std::int64_t width, std::int64_t height)
    : m_width(width),
      m_height(height),
      m_rowsPerBand(std::clamp<std::int64_t>(bandBytes / (width * bytesPerPixel), 1, height)),
      m_bands(static_cast<std::size_t>(bands().count())) {}

void PngEncoder::encodeBand(std::int64_t band, const std::uint8_t* rows) {
    const RowRange range = bands()[band];
    const auto rowSize = static_cast<std::size_t>(m_width * bytesPerPixel);
    PixelBuffer filtered(static_cast<std::size_t>(range.count) * (rowSize + 1));
    PixelBuffer scratch(rowSize + 1);
    StraightRows straight(rows, rowSize);
    std::span<const std::uint8_t> above;
    for (std::int64_t index = 0; index < range.count; ++index) {
        const std::span<const std::uint8_t> row = straight.row(index);
        const std::size_t place = static_cast<std::size_t>(index) * (rowSize + 1);
        filterPngRow(row, above, std::span(filtered).subspan(place, rowSize + 1), scratch);
        above = row;
    }

    // Incompressible data grow by five bytes per stored block of up to 65535.
    PixelBuffer deflated(filtered.size() + filtered.size() / 1024 + 4096);
    const std::size_t size = deflateBand(filtered, deflated, band == bands().count() - 1);
    m_bands[static_cast<std::size_t>(band)] = {
        .chunk = makeChunk("IDAT", {deflated.data(), static_cast<qsizetype>(size)}),
        .adler = isal_adler32(1, filtered.data(), filtered.size()),
        .filteredSize = static_cast<std::int64_t>(filtered.size())};
}

bool PngEncoder::writeTo(const std::function<bool(QByteArrayView)>& write) const {
    constexpr std::array<char, 8> signature{'\x89', 'P', 'N', 'G', '\r', '\n', '\x1A', '\n'};
    constexpr std::array<char, 5> eightBitRGBA{8, 6, 0, 0, 0};
    constexpr char perceptualIntent = 0;
    // "Deflate with a 32 KiB window, fast": what a zlib stream begins with.
    constexpr std::array<char, 2> zlibHeader{'\x78', '\x5E'};

    const QByteArray header = bigEndian(static_cast<quint32>(m_width)) +
                              bigEndian(static_cast<quint32>(m_height)) +
                              QByteArray(eightBitRGBA.data(), eightBitRGBA.size());
    QByteArray beginning(signature.data(), signature.size());
    beginning += makeChunk("IHDR", header);
    beginning += makeChunk("sRGB", {&perceptualIntent, 1});
    beginning += makeChunk("IDAT", {zlibHeader.data(), static_cast<qsizetype>(zlibHeader.size())});
    if (!write(beginning)) {
        return false;
    }
    uLong adler = adler32(0, nullptr, 0);
    for (const Band& band : m_bands) {
        if (!write(band.chunk)) {
            return false;
        }
        adler = adler32_combine(adler, band.adler, static_cast<z_off_t>(band.filteredSize));
    }
    return write(makeChunk("IDAT", bigEndian(static_cast<quint32>(adler))) + makeChunk("IEND", {}));
}

}  // namespace quarlin

#include "imaging/png/png_encoder.h"

#include "imaging/deflate/gray_deflate.h"
#include "imaging/deflate/pixel_deflate.h"
#include "imaging/pixels/premultiply.h"
#include "imaging/png/filter.h"
#include "imaging/png/png_signature.h"

#include <QtEndian>

#include <isa-l/crc.h>
#include <isa-l/igzip_lib.h>
#include <zlib.h>

#include <algorithm>
#include <array>
#include <bit>
#include <cstring>

namespace quarlin {

namespace {

/// The size of a strip before compression: large enough to compress as well as the whole image would, small
/// enough to keep every core busy.
constexpr std::int64_t bytesPerStrip = std::int64_t{1} << 20;

/// The bytes of a chunk (PNG standard, 5.3) before its data: the length and the type.
constexpr qsizetype dataOffset = 8;

/// The beginning of a chunk. Its data is to be appended; `closeChunk` adds the rest.
QByteArray openChunk(const char* type) {
    QByteArray chunk(dataOffset, Qt::Uninitialized);
    std::memcpy(chunk.data() + 4, type, 4);
    return chunk;
}

/// Enters the length of the data, and appends the checksum of type and data.
void closeChunk(QByteArray& chunk) {
    const qsizetype dataSize = chunk.size() - dataOffset;
    qToBigEndian(static_cast<quint32>(dataSize), chunk.data());
    const auto* checked = reinterpret_cast<const unsigned char*>(chunk.constData() + 4);
    const quint32 checksum = crc32_gzip_refl(0, checked, static_cast<std::uint64_t>(dataSize) + 4);
    chunk.resize(chunk.size() + 4);
    qToBigEndian(checksum, chunk.data() + dataOffset + dataSize);
}

QByteArray makeChunk(const char* type, QByteArrayView data) {
    QByteArray chunk = openChunk(type);
    chunk.append(data);
    closeChunk(chunk);
    return chunk;
}

template <typename Value>
QByteArray bigEndian(Value value) {
    QByteArray bytes(sizeof(Value), Qt::Uninitialized);
    qToBigEndian(value, bytes.data());
    return bytes;
}

/// A buffer for `size` bytes, followed by those that the coders may read beyond them.
PixelBuffer withSpare(std::size_t size) {
    PixelBuffer buffer(size + coderSpare);
    std::fill(buffer.begin() + static_cast<std::ptrdiff_t>(size), buffer.end(), std::uint8_t{0});
    return buffer;
}

bool isOpaque(std::span<const std::uint8_t> row) {
    std::uint32_t all = ~std::uint32_t{0};
    for (std::size_t index = 0; index < row.size(); index += bytesPerPixel) {
        std::uint32_t pixel = 0;
        std::memcpy(&pixel, row.data() + index, sizeof pixel);
        all &= pixel;
    }
    return std::bit_cast<std::array<std::uint8_t, 4>>(all)[3] == 255;
}

/// `unpremultiplied` of every color and alpha: a row of 256 colors per alpha.
const std::array<std::array<std::uint8_t, 256>, 256>& straightColors() {
    static const auto table = [] {
        std::array<std::array<std::uint8_t, 256>, 256> colors{};
        for (unsigned alpha = 0; alpha < 256; ++alpha) {
            for (unsigned color = 0; color < 256; ++color) {
                colors[alpha][color] =
                    unpremultiplied(static_cast<std::uint8_t>(color), static_cast<std::uint8_t>(alpha));
            }
        }
        return colors;
    }();
    return table;
}

/// Converts a row to straight alpha.
void convertToStraight(std::span<const std::uint8_t> row, std::uint8_t* output) {
    const auto& table = straightColors();
    for (std::size_t index = 0; index < row.size(); index += bytesPerPixel) {
        const auto& colors = table[row[index + 3]];
        output[index] = colors[row[index]];
        output[index + 1] = colors[row[index + 1]];
        output[index + 2] = colors[row[index + 2]];
        output[index + 3] = row[index + 3];
    }
}

/// The rows of a strip with straight alpha. Opaque rows need no conversion.
class StraightRows {
public:
    StraightRows(const std::uint8_t* rows, std::size_t rowSize)
        : m_rows(rows), m_rowSize(rowSize), m_buffers{PixelBuffer(rowSize), PixelBuffer(rowSize)} {}

    /// Row `index`, valid until the row after the next one is read.
    std::span<const std::uint8_t> row(std::int64_t index) {
        const std::span row(m_rows + static_cast<std::size_t>(index) * m_rowSize, m_rowSize);
        if (isOpaque(row)) {
            return row;
        }
        PixelBuffer& buffer = m_buffers[static_cast<std::size_t>(index % 2)];
        convertToStraight(row, buffer.data());
        return buffer;
    }

private:
    const std::uint8_t* m_rows;
    std::size_t m_rowSize;
    std::array<PixelBuffer, 2> m_buffers;
};

/// Filters the rows of a strip, from the top. The same filter suits neighboring rows, so it is chosen once
/// for several rows. The first row of a strip cannot refer to a row above.
class RowFilter {
public:
    explicit RowFilter(std::size_t pixelSize) : m_pixelSize(pixelSize) {}

    /// Writes the residuals of the next row. `row` must stay valid until the row after it is filtered.
    PngFilter apply(std::span<const std::uint8_t> row, std::span<std::uint8_t> residuals) {
        constexpr std::int64_t rowsPerChoice = 8;
        if (m_count++ % rowsPerChoice == 1) {
            m_filter = choosePngFilter(m_pixelSize, row, m_above);
        }
        const std::span above = m_above.empty() ? row : m_above;
        applyPngFilter(m_filter, m_pixelSize, row, above, residuals);
        m_above = row;
        return m_filter;
    }

private:
    std::size_t m_pixelSize;
    std::span<const std::uint8_t> m_above;
    PngFilter m_filter = PngFilter::sub;
    std::int64_t m_count = 0;
};

bool isOpaqueGray(std::span<const std::uint8_t> pixels) {
    for (std::size_t index = 0; index < pixels.size(); index += bytesPerPixel) {
        if (pixels[index] != pixels[index + 1] || pixels[index] != pixels[index + 2] ||
            pixels[index + 3] != 255) {
            return false;
        }
    }
    return true;
}

PixelBuffer grayOf(std::span<const std::uint8_t> pixels) {
    PixelBuffer gray(pixels.size() / bytesPerPixel);
    for (std::size_t index = 0; index < gray.size(); ++index) {
        gray[index] = pixels[index * bytesPerPixel];
    }
    return gray;
}

/// The alpha residual of the first pixel of an opaque row: the alpha to its left is 0, the one above 255.
std::uint8_t firstAlphaResidual(PngFilter filter) {
    switch (filter) {
        case PngFilter::none:
        case PngFilter::sub:
            return 255;
        case PngFilter::average:
            return 128;
        case PngFilter::up:
        case PngFilter::paeth:
            return 0;
    }
    return 0;
}

}  // namespace

PngEncoder::PngEncoder(std::int64_t width, std::int64_t height)
    : m_width(width),
      m_height(height),
      m_strips(height, std::clamp<std::int64_t>(bytesPerStrip / (width * bytesPerPixel), 1, height)) {}

PngStrip PngEncoder::encodeStrip(std::int64_t strip, const std::uint8_t* rows) const {
    const std::int64_t rowCount = m_strips[strip].count;
    const auto rowSize = static_cast<std::size_t>(m_width * bytesPerPixel);
    const std::span pixels(rows, static_cast<std::size_t>(rowCount) * rowSize);
    if (isOpaqueGray(pixels)) {
        return encodeGrayStrip(strip, grayOf(pixels).data());
    }

    PixelBuffer filtered = withSpare(static_cast<std::size_t>(rowCount) * (rowSize + 1));
    StraightRows straight(rows, rowSize);
    RowFilter filter(bytesPerPixel);
    for (std::int64_t index = 0; index < rowCount; ++index) {
        std::uint8_t* place = filtered.data() + static_cast<std::size_t>(index) * (rowSize + 1);
        *place = static_cast<std::uint8_t>(filter.apply(straight.row(index), {place + 1, rowSize}));
    }
    const FilteredRows filteredRows{m_width, rowCount, filtered.data()};
    PngStrip encoded{
        .chunk = openChunk("IDAT"),
        .inflatedSize = filteredRows.bytes(),
        .adler = isal_adler32(1, filtered.data(), static_cast<std::uint64_t>(filteredRows.bytes()))};
    deflatePixels(filteredRows, isLast(strip), encoded.chunk);
    closeChunk(encoded.chunk);
    return encoded;
}

PngStrip PngEncoder::encodeGrayStrip(std::int64_t strip, const std::uint8_t* gray) const {
    const std::int64_t rowCount = m_strips[strip].count;
    const auto width = static_cast<std::size_t>(m_width);
    PixelBuffer values = withSpare(static_cast<std::size_t>(rowCount) * width);
    PixelBuffer filters(static_cast<std::size_t>(rowCount));
    PixelBuffer firstAlphas(filters.size());
    RowFilter filter(1);
    for (std::size_t index = 0; index < filters.size(); ++index) {
        const PngFilter chosen =
            filter.apply({gray + index * width, width}, {values.data() + index * width, width});
        filters[index] = static_cast<std::uint8_t>(chosen);
        firstAlphas[index] = firstAlphaResidual(chosen);
    }
    const GrayResiduals residuals{m_width, rowCount, filters, firstAlphas, values.data()};
    PngStrip encoded{.chunk = openChunk("IDAT"),
                     .inflatedSize = rowCount * (m_width * bytesPerPixel + 1),
                     .adler = grayAdler(residuals)};
    deflateGray(residuals, isLast(strip), encoded.chunk);
    closeChunk(encoded.chunk);
    return encoded;
}

QByteArray PngEncoder::beginning() const {
    constexpr std::array<char, 5> eightBitRGBA{8, 6, 0, 0, 0};
    constexpr char perceptualIntent = 0;
    // The header of a zlib stream: deflate, a window of 32 KiB, compressed fast.
    constexpr std::array<char, 2> zlibHeader{'\x78', '\x5E'};

    const QByteArray header = bigEndian(static_cast<quint32>(m_width)) +
                              bigEndian(static_cast<quint32>(m_height)) +
                              QByteArray(eightBitRGBA.data(), eightBitRGBA.size());
    return QByteArray(pngSignature.data(), pngSignature.size()) + makeChunk("IHDR", header) +
           makeChunk("sRGB", {&perceptualIntent, 1}) +
           makeChunk("IDAT", {zlibHeader.data(), static_cast<qsizetype>(zlibHeader.size())});
}

QByteArray PngEncoder::ending(std::uint32_t adler) {
    return makeChunk("IDAT", bigEndian(static_cast<quint32>(adler))) + makeChunk("IEND", {});
}

std::uint32_t extendedAdler(std::uint32_t before, const PngStrip& strip) {
    return static_cast<std::uint32_t>(
        adler32_combine(before, strip.adler, static_cast<z_off_t>(strip.inflatedSize)));
}

}  // namespace quarlin

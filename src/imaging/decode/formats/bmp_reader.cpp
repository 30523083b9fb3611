#include "imaging/decode/formats/bmp_reader.h"

#include "imaging/base/pixel_size.h"
#include "imaging/decode/convert_pixels.h"
#include "imaging/decode/decode_error.h"
#include "imaging/decode/start_imaging.h"
#include "imaging/pixels/image_view.h"

#include <QBuffer>
#include <QImageReader>
#include <QtEndian>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <optional>
#include <utility>

namespace quarlin {

namespace {

template <typename T>
T valueAt(const QByteArray& bytes, qsizetype offset) {
    return qFromLittleEndian<T>(bytes.constData() + offset);
}

/// Whether the run-length codes from `position` on give every pixel of every row a value, and no other one.
/// Qt's reader would leave a skipped pixel undefined.
bool runsFillEveryPixel(const QByteArray& bytes, qsizetype position, bool fourBits, std::int64_t width,
                        std::int64_t height) {
    std::int64_t column = 0;
    std::int64_t row = 0;
    const auto byteAt = [&](qsizetype offset) { return static_cast<std::uint8_t>(bytes[offset]); };
    while (position + 1 < bytes.size()) {
        const std::uint8_t count = byteAt(position);
        const std::uint8_t code = byteAt(position + 1);
        constexpr std::uint8_t endOfRow = 0;
        constexpr std::uint8_t endOfBitmap = 1;
        constexpr std::uint8_t jump = 2;
        position += 2;
        if (count > 0) {
            column += count;
        } else if (code == endOfRow) {
            if (column != width) {
                return false;
            }
            column = 0;
            ++row;
        } else if (code == endOfBitmap || code == jump) {
            return false;
        } else {
            column += code;
            const qsizetype length = fourBits ? (code + 1) / 2 : code;
            position += length + length % 2;
        }
        if (column > width || position > bytes.size()) {
            return false;
        }
        if (row == height - 1 && column == width) {
            return true;
        }
    }
    return false;
}

constexpr qsizetype fileHeaderSize = 14;

struct Header {
    std::int64_t width = 0;
    std::int64_t height = 0;
    std::int64_t bitsPerPixel = 0;
    std::uint32_t compression = 0;
    /// Where headers, masks and palette end.
    qsizetype end = 0;
};

std::optional<Header> readHeader(const QByteArray& bytes) {
    constexpr qsizetype coreHeaderSize = 12;
    constexpr qsizetype infoHeaderSize = 40;
    constexpr std::uint32_t bitFields = 3;
    if (bytes.size() < fileHeaderSize + coreHeaderSize) {
        return std::nullopt;
    }
    const qsizetype size = valueAt<std::uint32_t>(bytes, fileHeaderSize);
    Header header;
    header.end = fileHeaderSize + size;
    std::int64_t colors = 0;
    qsizetype bytesPerColor = 4;
    if (size == coreHeaderSize) {
        header.width = valueAt<std::uint16_t>(bytes, 18);
        header.height = valueAt<std::uint16_t>(bytes, 20);
        header.bitsPerPixel = valueAt<std::uint16_t>(bytes, 24);
        bytesPerColor = 3;
    } else if (size >= infoHeaderSize && bytes.size() >= fileHeaderSize + infoHeaderSize) {
        header.width = valueAt<std::int32_t>(bytes, 18);
        header.height = std::abs(static_cast<std::int64_t>(valueAt<std::int32_t>(bytes, 22)));
        header.bitsPerPixel = valueAt<std::uint16_t>(bytes, 28);
        header.compression = valueAt<std::uint32_t>(bytes, 30);
        colors = valueAt<std::uint32_t>(bytes, 46);
        header.end += size == infoHeaderSize && header.compression == bitFields ? 12 : 0;
    } else {
        return std::nullopt;
    }
    if (header.bitsPerPixel <= 8) {
        header.end += (colors == 0 ? qsizetype{1} << header.bitsPerPixel : colors) * bytesPerColor;
    }
    return header;
}

/// Whether the file holds every pixel that its header promises, at the place that it declares. Qt's reader
/// would leave what is missing undefined.
bool isComplete(const QByteArray& bytes, const Header& header) {
    const qsizetype pixelOffset = valueAt<std::uint32_t>(bytes, 10);
    if (pixelOffset < header.end || pixelOffset > bytes.size()) {
        return false;
    }
    constexpr std::uint32_t runLength8 = 1;
    constexpr std::uint32_t runLength4 = 2;
    if (header.compression == runLength8 || header.compression == runLength4) {
        return runsFillEveryPixel(bytes, pixelOffset, header.compression == runLength4, header.width,
                                  header.height);
    }
    const std::int64_t bytesPerRow = (header.width * header.bitsPerPixel + 31) / 32 * 4;
    return bytesPerRow * header.height <= bytes.size() - pixelOffset;
}

QImage decode(const QByteArray& bytes) {
    startImaging();
    QBuffer buffer;
    buffer.setData(bytes);
    QImageReader reader(&buffer, "bmp");
    QImage image = reader.read().convertToFormat(QImage::Format_RGBA8888);
    if (image.isNull()) {
        throw DecodeError(DecodeProblem::damaged);
    }
    convertPixels<std::uint8_t, 4>(image.constBits(), image.sizeInBytes() / bytesPerPixel, image.bits());
    image.reinterpretAsFormat(pixelFormat);
    return image;
}

/// Rows are usually stored from the bottom, so they are all decoded before the first is given.
class BmpReader final : public RowReader {
public:
    BmpReader(QByteArray bytes, const Header& header)
        : RowReader(header.width, header.height), m_bytes(std::move(bytes)) {}

private:
    void readRows(std::int64_t count, std::uint8_t* rows) override {
        if (m_image.isNull()) {
            m_image = decode(m_bytes);
            m_bytes.clear();
            if (m_image.width() != width() || m_image.height() != height()) {
                throw DecodeError(DecodeProblem::damaged);
            }
        }
        std::copy_n(ImageView(m_image).row(position()), count * bytesPerRow(), rows);
    }

    QByteArray m_bytes;
    QImage m_image;
};

}  // namespace

bool isBmp(const QByteArray& bytes) { return bytes.startsWith("BM"); }

std::unique_ptr<RowReader> openBmp(const QByteArray& bytes) {
    const std::optional<Header> header = readHeader(bytes);
    if (!header || !isUsableSize(header->width, header->height) || !isComplete(bytes, *header)) {
        throw DecodeError(DecodeProblem::damaged);
    }
    return std::make_unique<BmpReader>(bytes, *header);
}

}  // namespace quarlin

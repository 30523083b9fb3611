#include "imaging/decode/formats/bmp/bmp_reader.h"

#include "imaging/base/pixel_size.h"
#include "imaging/decode/decode_error.h"
#include "imaging/decode/formats/bmp/bmp_header.h"
#include "imaging/decode/formats/bmp/bmp_runs.h"
#include "imaging/decode/start_imaging.h"
#include "imaging/pixels/convert_pixels.h"
#include "imaging/pixels/image_view.h"

#include <QBuffer>
#include <QImageReader>

#include <algorithm>
#include <cstdint>
#include <optional>
#include <utility>

namespace quarlin {

namespace {

/// Whether the file holds every pixel that its header promises, at the place that it declares. Qt's reader
/// would leave what is missing undefined. (Run-length codes are checked when they are decoded.)
bool isComplete(const QByteArray& bytes, const BmpHeader& header) {
    if (header.pixels < header.paletteEnd() || header.pixels > bytes.size()) {
        return false;
    }
    const std::int64_t bytesPerRow = (header.width * header.bitsPerPixel + 31) / 32 * 4;
    return header.isRunLengthCoded() || bytesPerRow * header.height <= bytes.size() - header.pixels;
}

QImage decode(const QByteArray& bytes) {
    startImaging();
    QBuffer buffer;
    buffer.setData(bytes);
    QImageReader reader(&buffer, "bmp");
    QImage decoded = reader.read();
    if (decoded.isNull()) {
        // The reader does not say why.
        const bool lacksMemory = QImage(reader.size(), QImage::Format_RGBA8888).isNull();
        throw DecodeError(lacksMemory ? DecodeProblem::tooLarge : DecodeProblem::damaged);
    }
    QImage image = decoded.convertToFormat(QImage::Format_RGBA8888);
    if (image.isNull()) {
        throw std::bad_alloc();
    }
    convertPixels<std::uint8_t, 4>(image.constBits(), image.sizeInBytes() / bytesPerPixel, image.bits());
    image.reinterpretAsFormat(pixelFormat);
    return image;
}

/// Rows are usually stored from the bottom, so they are all decoded before the first is given.
class BmpReader final : public RowReader {
public:
    BmpReader(QByteArray bytes, const BmpHeader& header)
        : RowReader(header.width, header.height), m_bytes(std::move(bytes)), m_header(header) {}

private:
    void readRows(std::int64_t count, std::uint8_t* rows) override {
        if (m_image.isNull()) {
            m_image = m_header.isRunLengthCoded() ? decodeBmpRuns(m_bytes, m_header) : decode(m_bytes);
            m_bytes.clear();
            if (m_image.width() != width() || m_image.height() != height()) {
                throw DecodeError(DecodeProblem::damaged);
            }
        }
        std::copy_n(ImageView(m_image).row(position()), count * bytesPerRow(), rows);
    }

    QByteArray m_bytes;
    BmpHeader m_header;
    QImage m_image;
};

}  // namespace

bool isBmp(const QByteArray& bytes) { return bytes.startsWith("BM") || isBareBmp(bytes); }

std::unique_ptr<RowReader> openBmp(const QByteArray& bytes) {
    const QByteArray file = completedBmp(bytes);
    const std::optional<BmpHeader> header = readBmpHeader(file);
    // Run-length codes may be few, the rows of other bitmaps are counted.
    if (!header || !isUsableSize(header->width, header->height) || !isComplete(file, *header) ||
        (header->isRunLengthCoded() && !isPlausibleSize(header->width, header->height, file.size()))) {
        throw DecodeError(DecodeProblem::damaged);
    }
    return std::make_unique<BmpReader>(file, *header);
}

}  // namespace quarlin

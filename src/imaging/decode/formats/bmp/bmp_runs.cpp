#include "imaging/decode/formats/bmp/bmp_runs.h"

#include "imaging/pixels/image_view.h"

#include <algorithm>
#include <array>
#include <new>
#include <utility>
#include <vector>

namespace quarlin {

namespace {

using Color = std::array<std::uint8_t, 4>;

std::vector<Color> paletteOf(const QByteArray& file, const BmpHeader& header) {
    // An index that has no color is black.
    std::vector<Color> palette(256, Color{0, 0, 0, 255});
    const std::int64_t colors = std::min<std::int64_t>(header.colors, 256);
    for (std::int64_t index = 0; index < colors; ++index) {
        const qsizetype place = header.palette + static_cast<qsizetype>(index) * header.bytesPerColor;
        for (int channel = 0; channel < 3; ++channel) {
            palette[static_cast<std::size_t>(index)][static_cast<std::size_t>(channel)] =
                static_cast<std::uint8_t>(file[place + 2 - channel]);
        }
    }
    return palette;
}

/// Writes pixels from the first row of the file on.
class RunWriter {
public:
    RunWriter(QImage& image, const BmpHeader& header, std::vector<Color> palette)
        : m_image(image), m_isTopDown(header.isTopDown), m_palette(std::move(palette)) {}

    /// False if the row has no room left.
    bool write(std::uint8_t index) {
        if (m_column >= m_image.width() || isPastTheEnd()) {
            return false;
        }
        const int row = m_isTopDown ? m_row : m_image.height() - 1 - m_row;
        std::copy_n(m_palette[index].data(), bytesPerPixel,
                    m_image.scanLine(row) + static_cast<std::ptrdiff_t>(bytesPerPixel) * m_column);
        ++m_column;
        return true;
    }
    void endRow() {
        m_column = 0;
        ++m_row;
    }
    bool move(int columns, int rows) {
        m_column += columns;
        m_row += rows;
        return m_column <= m_image.width() && m_row <= m_image.height();
    }
    bool isPastTheEnd() const { return m_row >= m_image.height(); }
    bool isComplete() const { return m_row == m_image.height() - 1 && m_column == m_image.width(); }

private:
    QImage& m_image;
    bool m_isTopDown;
    std::vector<Color> m_palette;
    int m_row = 0;
    int m_column = 0;
};

/// Takes the bytes of a file one by one. A byte that is missing is 0, and then `isIncomplete()`.
class ByteSource {
public:
    ByteSource(const QByteArray& bytes, qsizetype position) : m_bytes(bytes), m_position(position) {}

    std::uint8_t take() {
        if (m_position >= m_bytes.size()) {
            m_isIncomplete = true;
            return 0;
        }
        return static_cast<std::uint8_t>(m_bytes[m_position++]);
    }
    bool isIncomplete() const { return m_isIncomplete; }

private:
    const QByteArray& m_bytes;
    qsizetype m_position;
    bool m_isIncomplete = false;
};

/// The index of a pixel: the byte, or of 4 bits its upper half for every other pixel.
std::uint8_t indexIn(std::uint8_t byte, bool fourBits, int pixel) {
    return static_cast<std::uint8_t>(!fourBits ? byte : pixel % 2 == 0 ? byte >> 4 : byte & 15);
}

/// `count` pixels that are listed one by one, padded to an even number of bytes.
bool writeListed(ByteSource& source, int count, bool fourBits, RunWriter& writer) {
    std::uint8_t byte = 0;
    for (int pixel = 0; pixel < count; ++pixel) {
        if (!fourBits || pixel % 2 == 0) {
            byte = source.take();
        }
        if (source.isIncomplete() || !writer.write(indexIn(byte, fourBits, pixel))) {
            return false;
        }
    }
    const int size = fourBits ? (count + 1) / 2 : count;
    if (size % 2 != 0 && !writer.isComplete()) {
        source.take();
    }
    return true;
}

bool writeRuns(ByteSource& source, bool fourBits, RunWriter& writer) {
    constexpr std::uint8_t endOfRow = 0;
    constexpr std::uint8_t endOfBitmap = 1;
    constexpr std::uint8_t jump = 2;
    while (!writer.isComplete()) {
        const int count = source.take();
        const std::uint8_t code = source.take();
        if (source.isIncomplete()) {
            return false;
        }
        if (count > 0) {
            for (int pixel = 0; pixel < count; ++pixel) {
                if (!writer.write(indexIn(code, fourBits, pixel))) {
                    return false;
                }
            }
        } else if (code == endOfRow) {
            if (writer.isPastTheEnd()) {
                return false;
            }
            writer.endRow();
        } else if (code == endOfBitmap) {
            return true;
        } else if (code == jump) {
            const int columns = source.take();
            const int rows = source.take();
            if (!writer.move(columns, rows)) {
                return false;
            }
        } else if (!writeListed(source, code, fourBits, writer)) {
            return false;
        }
    }
    return true;
}

}  // namespace

QImage decodeBmpRuns(const QByteArray& file, const BmpHeader& header) {
    QImage image(static_cast<int>(header.width), static_cast<int>(header.height), pixelFormat);
    if (image.isNull()) {
        throw std::bad_alloc();
    }
    image.fill(Qt::transparent);
    RunWriter writer(image, header, paletteOf(file, header));
    ByteSource source(file, header.pixels);
    constexpr std::uint32_t fourBitRuns = 2;
    return writeRuns(source, header.compression == fourBitRuns, writer) ? image : QImage();
}

}  // namespace quarlin

#include "imaging/decode/formats/gif/gif_reader.h"

#include "imaging/base/pixel_size.h"
#include "imaging/decode/decode_error.h"
#include "imaging/decode/formats/gif/gif_frame.h"

#include <algorithm>
#include <utility>

namespace quarlin {

namespace {

class GifReader final : public RowReader {
public:
    /// `frame` reads from `bytes`.
    GifReader(QByteArray bytes, GifFrame frame)
        : RowReader(frame.canvasWidth, frame.canvasHeight),
          m_bytes(std::move(bytes)),
          m_frame(std::move(frame)) {}

private:
    void readRows(std::int64_t count, std::uint8_t* rows) override {
        if (m_indices.empty()) {
            std::optional<std::vector<std::uint8_t>> indices = gifIndices(m_frame);
            if (!indices) {
                throw DecodeError(DecodeProblem::damaged);
            }
            m_indices = std::move(*indices);
        }
        std::fill_n(rows, count * bytesPerRow(), std::uint8_t{0});
        for (std::int64_t index = 0; index < count; ++index) {
            const std::int64_t row = position() + index - m_frame.top;
            if (row >= 0 && row < m_frame.height) {
                writeRow(row, rows + index * bytesPerRow() + m_frame.left * bytesPerPixel);
            }
        }
    }

    void writeRow(std::int64_t row, std::uint8_t* pixels) const {
        const std::uint8_t* indices = m_indices.data() + row * m_frame.width;
        for (std::int64_t x = 0; x < m_frame.width; ++x) {
            if (indices[x] != m_frame.transparentIndex) {
                std::copy_n(m_frame.palette[indices[x]].data(), 3, pixels + x * bytesPerPixel);
                pixels[x * bytesPerPixel + 3] = 255;
            }
        }
    }

    QByteArray m_bytes;
    GifFrame m_frame;
    std::vector<std::uint8_t> m_indices;
};

}  // namespace

bool isGif(const QByteArray& bytes) { return bytes.startsWith("GIF87a") || bytes.startsWith("GIF89a"); }

std::unique_ptr<RowReader> openGif(const QByteArray& bytes) {
    std::optional<GifFrame> frame = firstGifFrame(bytes);
    if (!frame || !isUsableSize(frame->width, frame->height) ||
        !isPlausibleSize(frame->canvasWidth, frame->canvasHeight, bytes.size())) {
        throw DecodeError(DecodeProblem::damaged);
    }
    return std::make_unique<GifReader>(bytes, std::move(*frame));
}

}  // namespace quarlin

#include "imaging/decode/channel_rows.h"

#include "imaging/decode/decode_error.h"

#include <algorithm>
#include <utility>

namespace quarlin {

namespace {

constexpr int alphaChannel = 3;

class ChannelRows final : public RowReader {
public:
    ChannelRows(std::unique_ptr<RowReader> rows, int channel)
        : RowReader(rows->width(), rows->height()), m_rows(std::move(rows)), m_channel(channel) {
        m_mayBeTransparent = channel == alphaChannel || m_rows->keepColorsStraight();
    }

private:
    void readRows(std::int64_t count, std::uint8_t* rows) override {
        m_rows->read(count, rows);
        std::uint8_t* const end = rows + count * bytesPerRow();
        for (std::uint8_t* pixel = rows; pixel != end; pixel += bytesPerPixel) {
            if (!m_mayBeTransparent && pixel[alphaChannel] != 255) {
                throw DecodeError(DecodeProblem::damaged);
            }
            std::fill_n(pixel, alphaChannel, pixel[m_channel]);
            pixel[alphaChannel] = 255;
        }
    }

    std::unique_ptr<RowReader> m_rows;
    int m_channel;
    bool m_mayBeTransparent = false;
};

}  // namespace

std::unique_ptr<RowReader> channelRows(std::unique_ptr<RowReader> rows, int channel) {
    return std::make_unique<ChannelRows>(std::move(rows), channel);
}

}  // namespace quarlin

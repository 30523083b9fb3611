#include "imaging/decode/two_step_reader.h"

#include "imaging/base/parallel.h"
#include "imaging/base/row_strips.h"

#include <algorithm>

namespace quarlin {

void TwoStepReader::readRows(std::int64_t count, std::uint8_t* rows) {
    // Small enough that a strip is still in the processor's cache when it is converted.
    constexpr std::int64_t stripBytes = 1 << 17;
    constexpr std::int64_t bufferCount = 4;
    const RowStrips strips(count, std::clamp<std::int64_t>(stripBytes / m_samplesPerRow, 1, count));
    const auto bufferSize = static_cast<std::size_t>(strips[0].count * m_samplesPerRow) + spareBytes;
    if (m_buffers.size() < static_cast<std::size_t>(std::min(bufferCount, strips.count()))) {
        m_buffers.resize(static_cast<std::size_t>(std::min(bufferCount, strips.count())));
    }
    const auto bufferOf = [&](std::int64_t strip) -> PixelBuffer& {
        return m_buffers[static_cast<std::size_t>(strip) % m_buffers.size()];
    };
    const auto decode = [&](std::int64_t strip) {
        PixelBuffer& buffer = bufferOf(strip);
        if (buffer.size() < bufferSize) {
            buffer = PixelBuffer(bufferSize);
        }
        decodeRows(strips[strip].count, buffer.data());
        return true;
    };
    const auto convert = [&](std::int64_t strip) {
        convertRows(strips[strip].count, bufferOf(strip).data(), rows + strips[strip].first * bytesPerRow());
        return true;
    };
    doInStep(strips.count(), static_cast<std::int64_t>(m_buffers.size()), decode, convert);
}

}  // namespace quarlin

#include "imaging/pixels/row_reader.h"

#include <algorithm>

namespace quarlin {

void skipTo(std::int64_t position, RowReader& reader) {
    constexpr std::int64_t bufferBytes = 1 << 20;
    const std::int64_t rowsAtOnce =
        std::clamp<std::int64_t>(bufferBytes / reader.bytesPerRow(), 1, reader.height());
    PixelBuffer skipped(static_cast<std::size_t>(rowsAtOnce * reader.bytesPerRow()));
    while (reader.position() < position) {
        reader.read(std::min(rowsAtOnce, position - reader.position()), skipped.data());
    }
}

}  // namespace quarlin

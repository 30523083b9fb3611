#include "imaging/deflate/pixel_deflate.h"

#include "imaging/deflate/deflate_block.h"
#include "imaging/deflate/pixel_tokens.h"

namespace quarlin {

void deflatePixels(const FilteredRows& filtered, bool isLast, QByteArray& output) {
    const PixelTokens tokens(filtered);
    DeflateBlock block(tokens.counts(), output, isLast);
    const DeflateCodes& codes = block.codes();
    BitWriter writer = block.writer();
    const std::uint8_t* place = filtered.data;
    for (std::int64_t row = 0; row < filtered.rows; ++row) {
        codes.addByte(writer, *place++);
        const std::span<const PixelToken> rowTokens = tokens.row(row);
        if (rowTokens.empty()) {
            writer = codes.addPixels(writer, place, filtered.width);
            place += filtered.width * bytesPerPixel;
            continue;
        }
        for (const PixelToken token : rowTokens) {
            const std::uint32_t pixels = token >> 16U;
            if (pixels != 0) {
                codes.addMatch(writer, pixels, (token & 0xFFFFU) + 1);
                place += pixels * bytesPerPixel;
            } else {
                codes.addPixel(writer, place[0], place[1], place[2], place[3]);
                place += bytesPerPixel;
            }
        }
    }
    block.finish(writer);
}

}  // namespace quarlin

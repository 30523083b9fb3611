#include "imaging/deflate/gray_deflate.h"

#include "imaging/deflate/deflate_block.h"
#include "imaging/deflate/gray_tokens.h"

namespace quarlin {

void deflateGray(const GrayResiduals& residuals, bool isLast, QByteArray& output) {
    const GrayTokens tokens(residuals);
    DeflateBlock block(tokens.counts(), output, isLast);
    const DeflateCodes& codes = block.codes();
    BitWriter writer = block.writer();
    for (std::int64_t row = 0; row < residuals.rows; ++row) {
        const auto index = static_cast<std::size_t>(row);
        const std::uint8_t first = residuals.values[row * residuals.width];
        codes.addByte(writer, residuals.filters[index]);
        codes.addPixel(writer, first, first, first, residuals.firstAlphas[index]);
        for (const GrayToken token : tokens.row(row)) {
            const std::uint32_t pixels = token >> 16U;
            if (pixels != 0) [[likely]] {
                codes.addMatch(writer, pixels, (token & 0xFFFFU) + 1);
            } else {
                const auto residual = static_cast<std::uint8_t>(token);
                codes.addPixel(writer, residual, residual, residual, 0);
            }
        }
    }
    block.finish(writer);
}

}  // namespace quarlin

#pragma once

#include "imaging/deflate/deflate_block.h"
#include "imaging/deflate/gray_deflate.h"
#include "imaging/pixels/pixel_image.h"

#include <cstdint>
#include <span>
#include <vector>

namespace quarlin {

/// A pixel or a match in 32 bits. The bits from 16 on are the length of a match in pixels, 0 for none. The
/// low 16 bits are the distance of the match in bytes, less one, or the pixel's residual.
using GrayToken = std::uint32_t;

/// The pixels and matches that gray residuals consist of.
class GrayTokens {
public:
    explicit GrayTokens(const GrayResiduals& residuals);

    /// The tokens of a row, without its first pixel, which is never part of a match.
    std::span<const GrayToken> row(std::int64_t index) const {
        return {m_tokens.data() + index * m_width, m_tokenCounts[static_cast<std::size_t>(index)]};
    }

    /// How often each symbol occurs in the stream: in the tokens, the first pixels and the filters' numbers.
    const SymbolCounts& counts() const { return m_counts; }

private:
    std::int64_t m_width;
    /// `width` places for each row.
    std::vector<GrayToken, UninitializedAllocator<GrayToken>> m_tokens;
    /// How many of them each row uses.
    std::vector<std::size_t> m_tokenCounts;
    SymbolCounts m_counts;
};

}  // namespace quarlin

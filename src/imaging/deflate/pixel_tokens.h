#pragma once

#include "imaging/deflate/deflate_block.h"
#include "imaging/deflate/pixel_deflate.h"
#include "imaging/pixels/pixel_image.h"

#include <cstdint>
#include <span>
#include <vector>

namespace quarlin {

/// A match in 32 bits, or 0 for a pixel that is written as such. The bits from 16 on are the length of the
/// match in pixels, the low 16 bits are its distance in bytes, less one.
using PixelToken = std::uint32_t;

/// The pixels and matches that filtered rows consist of.
class PixelTokens {
public:
    explicit PixelTokens(const FilteredRows& filtered);

    /// The tokens of a row. None if the row has no match.
    std::span<const PixelToken> row(std::int64_t index) const {
        return {m_tokens.data() + index * m_width, m_tokenCounts[static_cast<std::size_t>(index)]};
    }

    /// How often each symbol occurs in the stream: in the tokens, the pixels and the filters' numbers.
    const SymbolCounts& counts() const { return m_counts; }

private:
    std::int64_t m_width;
    /// `width` places for each row.
    std::vector<PixelToken, UninitializedAllocator<PixelToken>> m_tokens;
    /// How many of them each row uses.
    std::vector<std::size_t> m_tokenCounts;
    SymbolCounts m_counts;
};

}  // namespace quarlin

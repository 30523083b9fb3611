#pragma once

#include <cstdint>
#include <span>
#include <vector>

namespace quarlin {

/// A prefix code as deflate (RFC 1951) uses it: for each symbol the number of bits, 0 for a symbol that never
/// occurs, and the bits themselves with the first one lowest.
struct HuffmanCode {
    std::vector<std::uint8_t> lengths;
    std::vector<std::uint16_t> bits;
};

/// The prefix code with no length above `longest` (at most 15) for symbols that occur `counts` times. It has
/// at least two codes, as deflate's readers like it.
HuffmanCode makeHuffmanCode(std::span<const std::uint32_t> counts, int longest);

}  // namespace quarlin

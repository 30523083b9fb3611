#pragma once

#include <cstdint>
#include <span>
#include <vector>

namespace quarlin {

/// A prefix code as deflate (RFC 1951) uses it: for each symbol the number of its bits, 0 where it has no
/// code, and the bits, the first one lowest.
struct HuffmanCode {
    std::vector<std::uint8_t> lengths;
    std::vector<std::uint16_t> bits;
};

/// The prefix code for symbols that occur `counts` times, with codes of at most `longest` bits (15 at most).
/// It has at least two codes, because some readers of deflate reject fewer.
HuffmanCode makeHuffmanCode(std::span<const std::uint32_t> counts, int longest);

}  // namespace quarlin

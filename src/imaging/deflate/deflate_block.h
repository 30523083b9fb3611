#pragma once

#include "imaging/deflate/bit_writer.h"
#include "imaging/pixels/pixel_image.h"

#include <array>
#include <bit>
#include <cstdint>
#include <span>

namespace quarlin {

/// What the coders of pixels share: the symbols of deflate (RFC 1951) and the writing of a block.

inline constexpr std::size_t literalSymbols = 286;
inline constexpr std::size_t distanceSymbols = 30;
inline constexpr std::size_t endOfBlock = 256;
/// The largest distance of a match, in bytes.
inline constexpr std::int64_t farthestMatch = 32768;
/// The longest match, in whole pixels.
inline constexpr std::int64_t longestMatch = 64;

/// The coders compare eight bytes at a time, so they may read this many bytes beyond the end of their input.
inline constexpr std::size_t coderSpare = 8;

struct DeflateSymbol {
    std::uint16_t symbol = 0;
    std::uint8_t extraBits = 0;
    std::uint16_t extra = 0;
};

/// The symbol for a match of `pixels` pixels, at most `longestMatch`.
constexpr DeflateSymbol lengthSymbol(std::int64_t pixels) {
    const auto beyond = static_cast<std::uint32_t>(pixels * bytesPerPixel - 3);
    if (beyond < 8) {
        return {static_cast<std::uint16_t>(257 + beyond), 0, 0};
    }
    const auto extraBits = static_cast<std::uint32_t>(std::bit_width(beyond) - 3);
    return {static_cast<std::uint16_t>(257 + 4 * extraBits + (beyond >> extraBits)),
            static_cast<std::uint8_t>(extraBits),
            static_cast<std::uint16_t>(beyond & ((1U << extraBits) - 1))};
}

/// The symbol for a distance of `bytes` bytes, at most `farthestMatch`.
constexpr DeflateSymbol distanceSymbol(std::uint32_t bytes) {
    const std::uint32_t beyond = bytes - 1;
    if (beyond < 4) {
        return {static_cast<std::uint16_t>(beyond), 0, 0};
    }
    const auto extraBits = static_cast<std::uint32_t>(std::bit_width(beyond) - 2);
    return {static_cast<std::uint16_t>(2 * extraBits + (beyond >> extraBits)),
            static_cast<std::uint8_t>(extraBits),
            static_cast<std::uint16_t>(beyond & ((1U << extraBits) - 1))};
}

/// How often each symbol occurs in a block.
struct SymbolCounts {
    std::array<std::uint32_t, literalSymbols> literals{};
    std::array<std::uint32_t, distanceSymbols> distances{};

    void addMatch(std::int64_t pixels, std::int64_t distance) {
        ++literals[lengthSymbol(pixels).symbol];
        ++distances[distanceSymbol(static_cast<std::uint32_t>(distance)).symbol];
    }
};

/// Writes one deflate block, with codes made for the symbols that it holds. The block ends on a byte
/// boundary, so that blocks made independently can be joined. With `isLast` it ends the stream.
class DeflateBlock {
public:
    /// `counts` must count every byte and match that will be added. `output` has `sizeFor` bytes.
    DeflateBlock(SymbolCounts counts, std::span<std::uint8_t> output, bool isLast);

    /// The most that a block of `bytes` bytes takes: 15 bits for each, and less than 1 KiB for the codes.
    static std::size_t sizeFor(std::int64_t bytes) { return static_cast<std::size_t>(bytes) * 2 + 1024; }

    void addByte(std::uint8_t byte) { m_writer.add(m_bytes[byte].bits, m_bytes[byte].count); }

    /// Four bytes, one pixel.
    void addPixel(std::uint8_t red, std::uint8_t green, std::uint8_t blue, std::uint8_t alpha) {
        Bits run;
        run.append(m_bytes[red]).append(m_bytes[green]).append(m_bytes[blue]).append(m_bytes[alpha]);
        m_writer.add(run.bits, run.count);
    }

    /// The same `pixels` pixels as those `distance` bytes before.
    void addMatch(std::size_t pixels, std::uint32_t distance) {
        const DeflateSymbol symbol = distanceSymbol(distance);
        Bits run = m_lengths[pixels];
        run.append(m_distances[symbol.symbol]).append({symbol.extra, symbol.extraBits});
        m_writer.add(run.bits, run.count);
    }

    /// Ends the block and returns its size in bytes.
    std::size_t finish();

private:
    struct Code {
        std::uint16_t bits = 0;
        std::uint16_t count = 0;
    };
    /// Several codes, joined to be written at once.
    struct Bits {
        std::uint64_t bits = 0;
        int count = 0;

        Bits& append(Code code) {
            bits |= std::uint64_t{code.bits} << static_cast<unsigned>(count);
            count += code.count;
            return *this;
        }
    };

    BitWriter m_writer;
    bool m_isLast;
    std::array<Code, literalSymbols> m_bytes{};
    std::array<Code, distanceSymbols> m_distances{};
    std::array<Bits, longestMatch + 1> m_lengths{};
};

}  // namespace quarlin

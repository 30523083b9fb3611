#pragma once

#include "imaging/deflate/bit_writer.h"
#include "imaging/deflate/huffman_code.h"
#include "imaging/pixels/pixel_image.h"

#include <QByteArray>

#include <array>
#include <bit>
#include <cstdint>

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

/// The smallest distance with a symbol.
constexpr std::uint32_t firstDistance(std::uint32_t symbol) {
    return symbol < 4 ? symbol + 1 : ((2 + symbol % 2) << (symbol / 2 - 1)) + 1;
}

/// The number of `distanceSymbol(bytes)`, looked up: more than 256 bytes away, 128 distances in a row have
/// the same symbol.
inline std::uint8_t distanceSymbolNumber(std::uint32_t bytes) {
    static constexpr auto numbers = [] {
        std::array<std::uint8_t, 512> table{};
        for (std::uint32_t index = 0; index < 256; ++index) {
            table[index] = static_cast<std::uint8_t>(distanceSymbol(index + 1).symbol);
            table[256 + index] = static_cast<std::uint8_t>(distanceSymbol(index * 128 + 1).symbol);
        }
        return table;
    }();
    const std::uint32_t beyond = bytes - 1;
    return numbers[beyond < 256 ? beyond : 256 + beyond / 128];
}

/// How often each symbol occurs in a block, apart from its end.
struct SymbolCounts {
    std::array<std::uint32_t, literalSymbols> literals{};
    std::array<std::uint32_t, distanceSymbols> distances{};

    /// `count` pixels whose red, green and blue are `residual`.
    void addGrayPixels(std::uint8_t residual, std::uint8_t alpha, std::uint32_t count) {
        literals[residual] += 3 * count;
        literals[alpha] += count;
    }
    void addMatch(std::int64_t pixels, std::uint32_t distance) {
        ++literals[lengthSymbol(pixels).symbol];
        ++distances[distanceSymbolNumber(distance)];
    }
};

/// The codes of a block, made for the symbols that it holds. What they add to a writer counts at most
/// `BitWriter::mostAtOnce` bits.
class DeflateCodes {
public:
    DeflateCodes(const HuffmanCode& literals, const HuffmanCode& distances);

    void addByte(BitWriter& writer, std::uint8_t byte) const {
        writer.add(m_bytes[byte].bits, m_bytes[byte].count);
    }

    /// Four bytes, one pixel.
    void addPixel(BitWriter& writer, std::uint8_t red, std::uint8_t green, std::uint8_t blue,
                  std::uint8_t alpha) const {
        Bits run;
        run.append(m_bytes[red]).append(m_bytes[green]).append(m_bytes[blue]).append(m_bytes[alpha]);
        writer.add(run.bits, run.count);
    }

    /// `count` pixels, four bytes each. Returns the writer after them.
    BitWriter addPixels(BitWriter writer, const std::uint8_t* pixels, std::int64_t count) const;

    /// The same `pixels` pixels as those `distance` bytes before.
    void addMatch(BitWriter& writer, std::size_t pixels, std::uint32_t distance) const {
        const DistanceCode& code = m_distances[distanceSymbolNumber(distance)];
        const Code length = m_lengths[pixels];
        Bits run{length.bits, length.count};
        run.append({code.bits, code.count});
        run.bits |= std::uint64_t{distance - code.first} << run.count;
        run.count += code.extraBits;
        writer.add(run.bits, run.count);
    }

    void addEnd(BitWriter& writer) const { writer.add(m_end.bits, m_end.count); }

private:
    struct Code {
        std::uint32_t bits = 0;
        std::uint32_t count = 0;
    };
    struct DistanceCode {
        std::uint16_t bits = 0;
        std::uint8_t count = 0;
        std::uint8_t extraBits = 0;
        /// The smallest distance with this code.
        std::uint32_t first = 0;
    };
    /// Several codes, joined to be written at once.
    struct Bits {
        std::uint64_t bits = 0;
        std::uint32_t count = 0;

        Bits& append(Code code) {
            bits |= std::uint64_t{code.bits} << count;
            count += code.count;
            return *this;
        }
    };

    std::array<Code, 256> m_bytes{};
    /// Of blue followed by alpha 0.
    std::array<Code, 256> m_opaqueBlues{};
    /// With the extra bits.
    std::array<Code, longestMatch + 1> m_lengths{};
    std::array<DistanceCode, distanceSymbols> m_distances{};
    Code m_end;
};

/// One deflate block, with codes made for the symbols that it holds. It ends on a byte boundary, so that
/// blocks made independently can be joined. With `isLast` it ends the stream.
class DeflateBlock {
public:
    /// Appends the beginning of the block to `output`. `counts` must count every byte and match that will be
    /// added.
    DeflateBlock(const SymbolCounts& counts, QByteArray& output, bool isLast);

    const DeflateCodes& codes() const { return m_codes; }

    /// The writer to which the symbols are added.
    BitWriter writer() const { return m_writer; }

    /// Ends the block after all symbols were added to `writer`. Only then has the output its size.
    void finish(BitWriter writer);

private:
    struct HuffmanCodes {
        HuffmanCode literals;
        HuffmanCode distances;
    };
    static HuffmanCodes codesFor(SymbolCounts counts);
    DeflateBlock(const SymbolCounts& counts, const HuffmanCodes& codes, QByteArray& output, bool isLast);

    DeflateCodes m_codes;
    QByteArray& m_output;
    qsizetype m_begin;
    BitWriter m_writer;
    bool m_isLast;
};

}  // namespace quarlin

#include "imaging/deflate/deflate_block.h"

#include "imaging/deflate/huffman_code.h"

#include <vector>

namespace quarlin {

namespace {

/// Writes the two codes of a block: the lengths of their codes, which are coded themselves (RFC 1951, 3.2.7).
void writeCodes(BitWriter& writer, const HuffmanCode& literals, const HuffmanCode& distances) {
    std::vector<std::uint8_t> lengths(literals.lengths);
    lengths.insert(lengths.end(), distances.lengths.begin(), distances.lengths.end());
    constexpr std::size_t lengthSymbols = 19;
    std::array<std::uint32_t, lengthSymbols> counts{};
    for (const std::uint8_t length : lengths) {
        ++counts[length];
    }
    constexpr int longestLengthCode = 7;
    const HuffmanCode code = makeHuffmanCode(counts, longestLengthCode);
    constexpr std::array<std::uint8_t, lengthSymbols> order{16, 17, 18, 0, 8,  7, 9,  6, 10, 5,
                                                            11, 4,  12, 3, 13, 2, 14, 1, 15};
    writer.add(literalSymbols - 257, 5);
    writer.add(distanceSymbols - 1, 5);
    writer.add(lengthSymbols - 4, 4);
    for (const std::uint8_t symbol : order) {
        writer.add(code.lengths[symbol], 3);
    }
    for (const std::uint8_t length : lengths) {
        writer.add(code.bits[length], code.lengths[length]);
    }
}

}  // namespace

DeflateBlock::DeflateBlock(SymbolCounts counts, std::span<std::uint8_t> output, bool isLast)
    : m_writer(output), m_isLast(isLast) {
    counts.literals[endOfBlock] = 1;
    // One bit less than deflate allows, so that the four bytes of a pixel can be written at once.
    constexpr int longestLiteral = BitWriter::mostAtOnce / bytesPerPixel;
    constexpr int longestDistance = 15;
    const HuffmanCode literals = makeHuffmanCode(counts.literals, longestLiteral);
    const HuffmanCode distances = makeHuffmanCode(counts.distances, longestDistance);
    for (std::size_t symbol = 0; symbol < m_bytes.size(); ++symbol) {
        m_bytes[symbol] = {literals.bits[symbol], literals.lengths[symbol]};
    }
    for (std::size_t symbol = 0; symbol < m_distances.size(); ++symbol) {
        m_distances[symbol] = {distances.bits[symbol], distances.lengths[symbol]};
    }
    for (std::size_t pixels = 1; pixels < m_lengths.size(); ++pixels) {
        const DeflateSymbol symbol = lengthSymbol(static_cast<std::int64_t>(pixels));
        m_lengths[pixels].append(m_bytes[symbol.symbol]).append({symbol.extra, symbol.extraBits});
    }

    constexpr std::uint64_t dynamicCodes = 2;
    m_writer.add(isLast ? 1 : 0, 1);
    m_writer.add(dynamicCodes, 2);
    writeCodes(m_writer, literals, distances);
}

std::size_t DeflateBlock::finish() {
    m_writer.add(m_bytes[endOfBlock].bits, m_bytes[endOfBlock].count);
    if (!m_isLast) {
        // An empty stored block brings the stream to a byte boundary.
        m_writer.add(0, 3);
        m_writer.alignToByte();
        m_writer.add(0xFFFF'0000, 32);
    }
    m_writer.alignToByte();
    return m_writer.size();
}

}  // namespace quarlin

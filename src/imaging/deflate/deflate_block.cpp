#include "imaging/deflate/deflate_block.h"

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

DeflateCodes::DeflateCodes(const HuffmanCode& literals, const HuffmanCode& distances)
    : m_end{literals.bits[endOfBlock], literals.lengths[endOfBlock]} {
    for (std::size_t symbol = 0; symbol < m_bytes.size(); ++symbol) {
        m_bytes[symbol] = {literals.bits[symbol], literals.lengths[symbol]};
    }
    for (std::size_t blue = 0; blue < m_bytes.size(); ++blue) {
        m_opaqueBlues[blue] = {m_bytes[blue].bits | m_bytes[0].bits << m_bytes[blue].count,
                               m_bytes[blue].count + m_bytes[0].count};
    }
    for (std::size_t pixels = 1; pixels < m_lengths.size(); ++pixels) {
        const DeflateSymbol symbol = lengthSymbol(static_cast<std::int64_t>(pixels));
        const std::uint32_t length = literals.lengths[symbol.symbol];
        m_lengths[pixels] = {literals.bits[symbol.symbol] | std::uint32_t{symbol.extra} << length,
                             length + symbol.extraBits};
    }
    for (std::uint32_t symbol = 0; symbol < m_distances.size(); ++symbol) {
        const std::uint32_t first = firstDistance(symbol);
        m_distances[symbol] = {distances.bits[symbol], distances.lengths[symbol],
                               distanceSymbol(first).extraBits, first};
    }
}

BitWriter DeflateCodes::addPixels(BitWriter writer, const std::uint8_t* pixels, std::int64_t count) const {
    for (const std::uint8_t* end = pixels + count * bytesPerPixel; pixels < end; pixels += bytesPerPixel) {
        if (pixels[3] != 0) [[unlikely]] {
            addPixel(writer, pixels[0], pixels[1], pixels[2], pixels[3]);
            continue;
        }
        Bits run;
        run.append(m_bytes[pixels[0]]).append(m_bytes[pixels[1]]).append(m_opaqueBlues[pixels[2]]);
        writer.add(run.bits, run.count);
    }
    return writer;
}

namespace {

/// The bits of the symbols of a block with these codes.
std::uint64_t symbolBits(const SymbolCounts& counts, const HuffmanCode& literals,
                         const HuffmanCode& distances) {
    std::uint64_t bits = literals.lengths[endOfBlock];
    for (std::size_t symbol = 0; symbol < literalSymbols; ++symbol) {
        const std::size_t extraBits = symbol < 265 || symbol == 285 ? 0 : (symbol - 261) / 4;
        bits += counts.literals[symbol] * std::uint64_t{literals.lengths[symbol] + extraBits};
    }
    for (std::size_t symbol = 0; symbol < distanceSymbols; ++symbol) {
        const std::size_t extraBits = symbol < 4 ? 0 : symbol / 2 - 1;
        bits += counts.distances[symbol] * std::uint64_t{distances.lengths[symbol] + extraBits};
    }
    return bits;
}

}  // namespace

DeflateBlock::HuffmanCodes DeflateBlock::codesFor(SymbolCounts counts) {
    // One bit less than deflate allows, so that the four bytes of a pixel can be written at once.
    constexpr int longestLiteral = BitWriter::mostAtOnce / bytesPerPixel;
    constexpr int longestDistance = 15;
    counts.literals[endOfBlock] = 1;
    return {makeHuffmanCode(counts.literals, longestLiteral),
            makeHuffmanCode(counts.distances, longestDistance)};
}

DeflateBlock::DeflateBlock(const SymbolCounts& counts, QByteArray& output, bool isLast)
    : DeflateBlock(counts, codesFor(counts), output, isLast) {}

DeflateBlock::DeflateBlock(const SymbolCounts& counts, const HuffmanCodes& codes, QByteArray& output,
                           bool isLast)
    : m_codes(codes.literals, codes.distances),
      m_output(output),
      m_begin(output.size()),
      m_writer(nullptr),
      m_isLast(isLast) {
    // More than the codes and the end of a block take.
    constexpr std::uint64_t mostOverhead = 1024;
    const std::uint64_t bytes = symbolBits(counts, codes.literals, codes.distances) / 8 + mostOverhead;
    const qsizetype size = m_begin + static_cast<qsizetype>(bytes + BitWriter::spare);
    // Without this the array would reserve up to twice as much.
    output.reserve(size);
    output.resize(size);
    m_writer = BitWriter(reinterpret_cast<std::uint8_t*>(output.data()) + m_begin);

    constexpr std::uint64_t dynamicCodes = 2;
    m_writer.add(isLast ? 1 : 0, 1);
    m_writer.add(dynamicCodes, 2);
    writeCodes(m_writer, codes.literals, codes.distances);
}

void DeflateBlock::finish(BitWriter writer) {
    m_codes.addEnd(writer);
    if (!m_isLast) {
        // An empty stored block brings the stream to a byte boundary.
        writer.add(0, 3);
        writer.alignToByte();
        writer.add(0xFFFF'0000, 32);
    }
    writer.alignToByte();
    m_output.resize(m_begin + static_cast<qsizetype>(writer.size()));
}

}  // namespace quarlin

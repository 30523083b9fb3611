#include "grey_deflate.h"

#include "bit_writer.h"
#include "huffman_code.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstring>
#include <vector>

namespace quarlin {

namespace {

// ---- The symbols of deflate (RFC 1951, 3.2.5)
// -----------------------------------------------------------------

constexpr std::size_t endOfBlock = 256;
constexpr std::size_t literalSymbols = 286;
constexpr std::size_t distanceSymbols = 30;
constexpr std::int64_t farthest = 32768;
/// The longest match in whole pixels.
constexpr std::int64_t longestMatch = 64;

struct Symbol {
    std::uint16_t symbol = 0;
    std::uint8_t extraBits = 0;
    std::uint16_t extra = 0;
};

/// The symbol for a match of `pixels` pixels.
constexpr Symbol lengthSymbol(std::int64_t pixels) {
    const auto beyond = static_cast<std::uint32_t>(pixels * bytesPerPixel - 3);
    if (beyond < 8) {
        return {static_cast<std::uint16_t>(257 + beyond), 0, 0};
    }
    const auto extraBits = static_cast<std::uint32_t>(std::bit_width(beyond) - 3);
    return {static_cast<std::uint16_t>(257 + 4 * extraBits + (beyond >> extraBits)),
            static_cast<std::uint8_t>(extraBits),
            static_cast<std::uint16_t>(beyond & ((1U << extraBits) - 1))};
}

/// The symbol for a distance of `bytes` bytes.
constexpr Symbol distanceSymbol(std::uint32_t bytes) {
    const std::uint32_t beyond = bytes - 1;
    if (beyond < 4) {
        return {static_cast<std::uint16_t>(beyond), 0, 0};
    }
    const auto extraBits = static_cast<std::uint32_t>(std::bit_width(beyond) - 2);
    return {static_cast<std::uint16_t>(2 * extraBits + (beyond >> extraBits)),
            static_cast<std::uint8_t>(extraBits),
            static_cast<std::uint16_t>(beyond & ((1U << extraBits) - 1))};
}

// ---- Tokens
// ---------------------------------------------------------------------------------------------------

/// What the stream is made of: bytes, pixels and matches, packed into 32 bits: the match's length in pixels
/// above (0 for none), and below it the distance in bytes less one, the pixel or the byte.
using Token = std::uint32_t;
constexpr Token payload = 0xFFFF;
constexpr Token byteFlag = 0x8000'0000;

constexpr Token byteToken(std::uint8_t byte) { return byteFlag | byte; }
constexpr Token pixelToken(std::uint8_t residual) { return residual; }
constexpr Token matchToken(std::int64_t pixels, std::int64_t distance) {
    return static_cast<Token>(pixels) << 16U | static_cast<Token>(distance - 1);
}

struct Tokens {
    std::vector<Token> tokens;
    std::array<std::uint32_t, literalSymbols> literals{};
    std::array<std::uint32_t, distanceSymbols> distances{};

    void addByte(std::uint8_t byte) {
        tokens.push_back(byteToken(byte));
        ++literals[byte];
    }
    void addPixel(std::uint8_t residual) {
        tokens.push_back(pixelToken(residual));
        literals[residual] += 3;
        ++literals[0];
    }
    void addMatch(std::int64_t pixels, std::int64_t distance) {
        tokens.push_back(matchToken(pixels, distance));
        ++literals[lengthSymbol(pixels).symbol];
        ++distances[distanceSymbol(static_cast<std::uint32_t>(distance)).symbol];
    }
};

// ---- Matching
// -------------------------------------------------------------------------------------------------

template <typename Word>
Word load(const std::uint8_t* place) {
    Word word;
    std::memcpy(&word, place, sizeof word);
    return word;
}

/// Finds, for each run of residuals, an earlier place where the same run stands: the latest place for runs of
/// one, two, four and eight pixels each.
class MatchFinder {
public:
    explicit MatchFinder(const GreyResiduals& residuals) : m_residuals(residuals) {}

    struct Match {
        std::int64_t pixels = 0;
        std::int64_t distance = 0;
    };

    /// The match for the pixel at `place`, of at most `limit` pixels; none when nothing worth it is known.
    Match find(std::int64_t place, std::int64_t limit) const {
        const std::uint8_t* values = m_residuals.values + place;
        Match best = longest(m_eights[hash(load<std::uint64_t>(values))], place, limit);
        if (best.pixels < 8) {
            best = longerOf(best, longest(m_fours[hash(load<std::uint32_t>(values))], place, limit));
        }
        if (best.pixels < 3) {
            best = longerOf(best, longest(m_pairs[load<std::uint16_t>(values)], place, limit));
        }
        if (best.pixels < 1) {
            best = longest(m_singles[*values], place, limit);
        }
        // Far distances take more bits than a single pixel's own bytes.
        constexpr std::int64_t nearEnoughForOne = 256;
        return best.pixels == 1 && best.distance > nearEnoughForOne ? Match{} : best;
    }

    /// Makes the pixel at `place` known.
    void insert(std::int64_t place) {
        const std::uint8_t* values = m_residuals.values + place;
        const auto entry = static_cast<std::int32_t>(place);
        m_singles[*values] = entry;
        m_pairs[load<std::uint16_t>(values)] = entry;
        m_fours[hash(load<std::uint32_t>(values))] = entry;
        m_eights[hash(load<std::uint64_t>(values))] = entry;
    }

private:
    static constexpr unsigned hashBits = 15;
    static constexpr std::int32_t nowhere = -1;
    using Table = std::vector<std::int32_t>;

    static std::size_t hash(std::uint32_t word) { return (word * 0x9E3779B1U) >> (32U - hashBits); }
    static std::size_t hash(std::uint64_t word) { return (word * 0x9E3779B97F4A7C15U) >> (64U - hashBits); }

    static Match longerOf(Match left, Match right) { return right.pixels > left.pixels ? right : left; }

    /// The match of `place` with the earlier place `candidate`, which does not leave the candidate's row.
    Match longest(std::int32_t candidate, std::int64_t place, std::int64_t limit) const {
        if (candidate == nowhere || (place - candidate) * bytesPerPixel >= farthest) {
            return {};
        }
        const std::uint8_t* here = m_residuals.values + place;
        const std::uint8_t* there = m_residuals.values + candidate;
        std::int64_t length = 0;
        while (length < limit) {
            const std::uint64_t difference =
                load<std::uint64_t>(here + length) ^ load<std::uint64_t>(there + length);
            if (difference != 0) {
                length += std::countr_zero(difference) / 8;
                break;
            }
            length += 8;
        }
        if (length == 0) {
            return {};
        }
        const auto width = static_cast<std::uint32_t>(m_residuals.width);
        const std::uint32_t row = static_cast<std::uint32_t>(candidate) / width;
        const std::uint32_t column = static_cast<std::uint32_t>(candidate) - row * width;
        const std::uint32_t rowHere = static_cast<std::uint32_t>(place) / width;
        const std::int64_t distance = (place - candidate) * bytesPerPixel + rowHere - row;
        if (distance > farthest) {
            return {};
        }
        return {std::min({length, limit, static_cast<std::int64_t>(width - column)}), distance};
    }

    const GreyResiduals& m_residuals;
    Table m_singles = Table(256, nowhere);
    Table m_pairs = Table(65536, nowhere);
    Table m_fours = Table(std::size_t{1} << hashBits, nowhere);
    Table m_eights = Table(std::size_t{1} << hashBits, nowhere);
};

Tokens tokenize(const GreyResiduals& residuals) {
    Tokens result;
    result.tokens.reserve(static_cast<std::size_t>(residuals.rows * residuals.width / 2));
    MatchFinder finder(residuals);
    for (std::int64_t row = 0; row < residuals.rows; ++row) {
        const auto index = static_cast<std::size_t>(row);
        const std::int64_t first = row * residuals.width;
        const std::int64_t end = first + residuals.width;
        // The first pixel's alpha may be left over by the filter: its bytes go as they are.
        result.addByte(residuals.filters[index]);
        for (const std::uint8_t byte : {residuals.values[first], residuals.values[first],
                                        residuals.values[first], residuals.firstAlphas[index]}) {
            result.addByte(byte);
        }
        for (std::int64_t place = first + 1; place < end;) {
            const MatchFinder::Match match = finder.find(place, std::min(longestMatch, end - place));
            if (match.pixels == 0) {
                result.addPixel(residuals.values[place]);
                finder.insert(place++);
                continue;
            }
            result.addMatch(match.pixels, match.distance);
            for (const std::int64_t next = place + match.pixels; place < next; ++place) {
                finder.insert(place);
            }
        }
    }
    ++result.literals[endOfBlock];
    return result;
}

// ---- Writing
// --------------------------------------------------------------------------------------------------

/// Writes the two codes of a block as their lengths, which are themselves coded (RFC 1951, 3.2.7).
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

/// Bits that always go together.
struct BitRun {
    std::uint64_t bits = 0;
    int count = 0;

    BitRun& append(std::uint64_t more, int moreCount) {
        bits |= more << static_cast<unsigned>(count);
        count += moreCount;
        return *this;
    }
};

void writeTokens(BitWriter& writer, const std::vector<Token>& tokens, const HuffmanCode& literals,
                 const HuffmanCode& distances) {
    std::array<BitRun, longestMatch + 1> matches{};
    for (std::int64_t pixels = 1; pixels <= longestMatch; ++pixels) {
        const Symbol symbol = lengthSymbol(pixels);
        matches[static_cast<std::size_t>(pixels)]
            .append(literals.bits[symbol.symbol], literals.lengths[symbol.symbol])
            .append(symbol.extra, symbol.extraBits);
    }
    for (const Token token : tokens) {
        const std::size_t value = token & payload;
        if ((token & byteFlag) != 0) {
            writer.add(literals.bits[value], literals.lengths[value]);
        } else if (const std::size_t pixels = token >> 16U; pixels != 0) {
            const Symbol symbol = distanceSymbol(static_cast<std::uint32_t>(value + 1));
            BitRun run = matches[pixels];
            run.append(distances.bits[symbol.symbol], distances.lengths[symbol.symbol])
                .append(symbol.extra, symbol.extraBits);
            writer.add(run.bits, run.count);
        } else {
            const int length = literals.lengths[value];
            writer.add(literals.bits[value], length);
            writer.add(literals.bits[value], length);
            writer.add(literals.bits[value], length);
            writer.add(literals.bits[0], literals.lengths[0]);
        }
    }
}

}  // namespace

PixelBuffer deflateGrey(const GreyResiduals& residuals, bool isLast) {
    const Tokens tokens = tokenize(residuals);
    constexpr int longestCode = 15;
    const HuffmanCode literals = makeHuffmanCode(tokens.literals, longestCode);
    const HuffmanCode distances = makeHuffmanCode(tokens.distances, longestCode);

    // No token takes more than 15 bits for each of its bytes; the codes themselves take less than 1 KiB.
    PixelBuffer output(static_cast<std::size_t>(residuals.bytes()) * 2 + 1024);
    BitWriter writer(output);
    constexpr std::uint64_t dynamicBlock = 2;
    writer.add(isLast ? 1 : 0, 1);
    writer.add(dynamicBlock, 2);
    writeCodes(writer, literals, distances);
    writeTokens(writer, tokens.tokens, literals, distances);
    writer.add(literals.bits[endOfBlock], literals.lengths[endOfBlock]);
    if (!isLast) {
        // An empty stored block brings the stream to a byte's edge.
        writer.add(0, 3);
        writer.alignToByte();
        writer.add(0xFFFF'0000, 32);
    }
    writer.alignToByte();
    output.resize(writer.size());
    return output;
}

}  // namespace quarlin

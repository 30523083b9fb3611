#include "imaging/deflate/gray_deflate.h"

#include "imaging/deflate/deflate_block.h"
#include "imaging/deflate/load_word.h"

#include <algorithm>
#include <array>
#include <bit>
#include <vector>

namespace quarlin {

namespace {

// ---- Tokens

/// A byte, a pixel or a match of the stream in 32 bits. Bit 31 is set for a byte. The bits from 16 on are the
/// length of a match in pixels, 0 for none. The low 16 bits are the distance of the match in bytes, less one,
/// or the pixel's residual, or the byte.
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
    SymbolCounts counts;

    void addByte(std::uint8_t byte) {
        tokens.push_back(byteToken(byte));
        ++counts.literals[byte];
    }
    void addPixel(std::uint8_t residual) {
        tokens.push_back(pixelToken(residual));
        counts.literals[residual] += 3;
        ++counts.literals[0];
    }
    void addMatch(std::int64_t pixels, std::int64_t distance) {
        tokens.push_back(matchToken(pixels, distance));
        counts.addMatch(pixels, distance);
    }
};

// ---- Matching

/// Finds an earlier place with the same residuals as a given one. For every run of one, two, four and eight
/// pixels it knows the latest place.
class MatchFinder {
public:
    explicit MatchFinder(const GrayResiduals& residuals) : m_residuals(residuals) {}

    struct Match {
        std::int64_t pixels = 0;
        std::int64_t distance = 0;
    };

    /// The match for the pixel at `place`, of at most `limit` pixels; an empty one if none is worth its bits.
    /// `lastMatch` is the length of the match before it: after short ones, long ones are rare.
    Match find(std::int64_t place, std::int64_t limit, std::int64_t lastMatch) const {
        const std::uint8_t* values = m_residuals.values + place;
        constexpr std::int64_t promising = 3;
        Match best;
        if (lastMatch >= promising) {
            best = longest(m_eights[hash(loadWord<std::uint64_t>(values))], place, limit);
        }
        if (best.pixels < 8) {
            best = longerOf(best, longest(m_fours[hash(loadWord<std::uint32_t>(values))], place, limit));
        }
        if (best.pixels < 3) {
            best = longerOf(best, longest(m_pairs[loadWord<std::uint16_t>(values)], place, limit));
        }
        if (best.pixels < 1) {
            best = longest(m_singles[*values], place, limit);
        }
        // A larger distance takes more bits than the pixel itself.
        constexpr std::int64_t nearEnoughForOne = 256;
        return best.pixels == 1 && best.distance > nearEnoughForOne ? Match{} : best;
    }

    /// Enters the pixel at `place` as the latest.
    void insert(std::int64_t place) {
        const std::uint8_t* values = m_residuals.values + place;
        const auto low = static_cast<LowBits>(place);
        m_singles[*values] = low;
        m_pairs[loadWord<std::uint16_t>(values)] = low;
        m_fours[hash(loadWord<std::uint32_t>(values))] = low;
        m_eights[hash(loadWord<std::uint64_t>(values))] = low;
    }

private:
    /// The low bits of a place. They cover eight times the largest distance of a match. An entry may be older
    /// than that, and then points at other pixels, as it does when hashes collide: every candidate is
    /// compared.
    using LowBits = std::uint16_t;
    static constexpr unsigned hashBits = 15;
    template <std::size_t size>
    using Table = std::array<LowBits, size>;

    static std::size_t hash(std::uint32_t word) { return (word * 0x9E3779B1U) >> (32U - hashBits); }
    static std::size_t hash(std::uint64_t word) { return (word * 0x9E3779B97F4A7C15U) >> (64U - hashBits); }

    static Match longerOf(Match left, Match right) { return right.pixels > left.pixels ? right : left; }

    /// The match of `place` with the earlier place that `low` gives, within the row of the earlier place.
    Match longest(LowBits low, std::int64_t place, std::int64_t limit) const {
        const auto back = static_cast<LowBits>(static_cast<LowBits>(place) - low);
        if (back == 0 || back * bytesPerPixel >= farthestMatch) {
            return {};
        }
        const std::int64_t candidate = place - back;
        const std::uint8_t* here = m_residuals.values + place;
        const std::uint8_t* there = m_residuals.values + candidate;
        std::int64_t length = 0;
        while (length < limit) {
            const std::uint64_t difference =
                loadWord<std::uint64_t>(here + length) ^ loadWord<std::uint64_t>(there + length);
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
        const std::int64_t distance = back * bytesPerPixel + rowHere - row;
        // The first pixel of a row is never entered, because its alpha may differ. Only an old or empty entry
        // leads there.
        if (distance > farthestMatch || column == 0) {
            return {};
        }
        return {std::min({length, limit, static_cast<std::int64_t>(width - column)}), distance};
    }

    const GrayResiduals& m_residuals;
    Table<256> m_singles{};
    Table<65536> m_pairs{};
    Table<std::size_t{1} << hashBits> m_fours{};
    Table<std::size_t{1} << hashBits> m_eights{};
};

Tokens tokenize(const GrayResiduals& residuals) {
    Tokens result;
    result.tokens.reserve(static_cast<std::size_t>(residuals.rows * residuals.width / 2));
    MatchFinder finder(residuals);
    for (std::int64_t row = 0; row < residuals.rows; ++row) {
        const auto index = static_cast<std::size_t>(row);
        const std::int64_t first = row * residuals.width;
        const std::int64_t end = first + residuals.width;
        // The first pixel's alpha residual may not be 0, so its bytes are written one by one.
        result.addByte(residuals.filters[index]);
        for (const std::uint8_t byte : {residuals.values[first], residuals.values[first],
                                        residuals.values[first], residuals.firstAlphas[index]}) {
            result.addByte(byte);
        }
        std::int64_t lastMatch = longestMatch;
        for (std::int64_t place = first + 1; place < end;) {
            const MatchFinder::Match match =
                finder.find(place, std::min(longestMatch, end - place), lastMatch);
            lastMatch = match.pixels;
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
    return result;
}

}  // namespace

PixelBuffer deflateGray(const GrayResiduals& residuals, bool isLast) {
    const Tokens tokens = tokenize(residuals);
    PixelBuffer output(DeflateBlock::sizeFor(residuals.bytes()));
    DeflateBlock block(tokens.counts, output, isLast);
    for (const Token token : tokens.tokens) {
        const Token value = token & payload;
        const auto byte = static_cast<std::uint8_t>(value);
        if ((token & byteFlag) != 0) {
            block.addByte(byte);
        } else if (const Token pixels = token >> 16U; pixels != 0) {
            block.addMatch(pixels, value + 1);
        } else {
            block.addPixel(byte, byte, byte, 0);
        }
    }
    output.resize(block.finish());
    return output;
}

}  // namespace quarlin

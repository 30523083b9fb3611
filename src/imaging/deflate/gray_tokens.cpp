#include "imaging/deflate/gray_tokens.h"

#include "imaging/deflate/gray_places.h"
#include "imaging/deflate/latest_runs.h"
#include "imaging/deflate/load_word.h"

#include <algorithm>
#include <array>
#include <bit>
#include <utility>

namespace quarlin {

namespace {

struct TokenCounts {
    std::array<std::uint32_t, 256> pixels{};
    std::array<std::uint32_t, GrayPlaces::longestMatch + 1> lengths{};
    std::array<std::uint32_t, distanceSymbols> distances{};
};

/// How many pixels are the same from `here` and `there` on. The first eight are.
std::int64_t lengthBeyondEight(const std::uint8_t* here, const std::uint8_t* there) {
    std::int64_t length = 8;
    while (length < GrayPlaces::longestMatch) {
        const std::uint64_t difference =
            loadWord<std::uint64_t>(here + length) ^ loadWord<std::uint64_t>(there + length);
        if (difference != 0) {
            return length + std::countr_zero(difference) / 8;
        }
        length += 8;
    }
    return length;
}

/// The highest bit of each byte that is 0.
std::uint64_t zeroBytes(std::uint64_t word) {
    constexpr std::uint64_t lowBits = 0x7F7F'7F7F'7F7F'7F7F;
    return ~(((word & lowBits) + lowBits) | word | lowBits);
}

/// How many pixels before `here` the nearest same pixel is or, with `isPair`, the nearest pair: at most
/// `farthest`, 0 for none.
template <bool isPair>
std::int64_t nearestSame(const std::uint8_t* here, std::int64_t farthest) {
    constexpr std::uint64_t everyByte = 0x0101'0101'0101'0101;
    for (std::int64_t back = 8; back < farthest + 8; back += 8) {
        std::uint64_t same = zeroBytes(loadWord<std::uint64_t>(here - back) ^ here[0] * everyByte);
        if constexpr (isPair) {
            same &= zeroBytes(loadWord<std::uint64_t>(here - back + 1) ^ here[1] * everyByte);
        }
        if (same != 0) {
            const std::int64_t nearest = back - 7 + std::countl_zero(same) / 8;
            return nearest <= farthest ? nearest : 0;
        }
    }
    return 0;
}

/// Finds the tokens of one row. With `isSmooth`, `found` is where the runs of four and of eight were latest,
/// else those of two and of four.
template <bool isSmooth>
class RowParser {
public:
    RowParser(const GrayPlaces& places, std::int64_t row, const LatestRuns::Found* found, GrayToken* tokens)
        : m_values(places.value(places.placeOf(row))),
          m_restrictions(places.restriction(places.placeOf(row))),
          m_found(found),
          m_width(places.width()),
          m_place(static_cast<std::uint32_t>(places.placeOf(row))),
          m_remainder(places.remainderOf(row)),
          m_next(tokens) {}

    bool isDone() const { return m_column >= m_width; }
    /// After the last token.
    const GrayToken* end() const { return m_next; }

    /// Finds the next token. Where it begins depends on the one before, so the time of a step is that from
    /// the column to the length: no division, and only branches that nearly always go the same way.
    [[gnu::always_inline]] void step(TokenCounts& counts) {
        const std::uint8_t* here = m_values + m_column;
        const auto word = loadWord<std::uint64_t>(here);
        const LatestRuns::Found found = m_found[m_column];
        const std::uint32_t best = std::max(rated(here, word, found), rated(here, word, found >> 16U));
        std::int64_t length = best >> 16U;
        const std::int64_t back = farthestBack - (best & 0xFFFFU);
        const unsigned restriction = m_restrictions[m_column - back];
        const auto distance =
            static_cast<std::uint32_t>(back * bytesPerPixel + m_remainder - (restriction >> 6U));
        if (length == 8) {
            length = lengthBeyondEight(here, here - back);
        }
        const std::int64_t longest =
            std::min<std::int64_t>(m_width - m_column, GrayPlaces::longestMatch - (restriction & 0x3FU));
        if (length > longest) [[unlikely]] {
            length = longest;
        }
        if (length < 2 || distance > farthestMatch) [[unlikely]] {
            addNear(here, counts);
            return;
        }
        addMatch(length, distance, counts);
    }

private:
    static constexpr std::uint32_t farthestBack = GrayPlaces::farthestBack;

    /// For a candidate's low bits: how many of the first eight pixels are the same, upper half, and
    /// `farthestBack` less how far back the candidate is. So the greater of two has the longer match and,
    /// among equals, the nearer one. A candidate that is too far back stands for another one.
    [[gnu::always_inline]] std::uint32_t rated(const std::uint8_t* here, std::uint64_t word,
                                               std::uint32_t lowBits) const {
        const std::uint32_t backLessOne =
            (m_place + static_cast<std::uint32_t>(m_column) - 1 - lowBits) % farthestBack;
        const std::uint64_t difference =
            loadWord<std::uint64_t>(here - 1 - static_cast<std::int64_t>(backLessOne)) ^ word;
        const auto sameBits = static_cast<std::uint32_t>(std::countr_zero(difference));
        return (sameBits / 8 << 16U) + (farthestBack - 1 - backLessOne);
    }

    /// Where no run was found: a short match near by, or else the pixel.
    void addNear(const std::uint8_t* here, TokenCounts& counts) {
        // The distance of a farther match takes about as many bits as the pixel.
        constexpr std::int64_t farthestNear = 64;
        const std::int64_t farthest = std::min(m_column - 1, farthestNear);
        if constexpr (isSmooth) {
            // Runs of two were not looked up.
            if (m_column + 1 < m_width) {
                if (const std::int64_t back = nearestSame<true>(here, farthest); back > 0) {
                    addMatch(2, static_cast<std::uint32_t>(back * bytesPerPixel), counts);
                    return;
                }
            }
        }
        if (const std::int64_t back = nearestSame<false>(here, farthest); back > 0) {
            addMatch(1, static_cast<std::uint32_t>(back * bytesPerPixel), counts);
            return;
        }
        *m_next++ = *here;
        ++counts.pixels[*here];
        ++m_column;
    }

    [[gnu::always_inline]] void addMatch(std::int64_t length, std::uint32_t distance, TokenCounts& counts) {
        *m_next++ = static_cast<GrayToken>(length) << 16U | (distance - 1);
        ++counts.lengths[static_cast<std::size_t>(length)];
        ++counts.distances[distanceSymbolNumber(distance)];
        m_column += length;
    }

    const std::uint8_t* m_values;
    const std::uint8_t* m_restrictions;
    const LatestRuns::Found* m_found;
    std::int64_t m_width;
    std::uint32_t m_place;
    unsigned m_remainder;
    GrayToken* m_next;
    std::int64_t m_column = 1;
};

/// Finds the tokens of a strip, several rows at a time: steps in different rows do not wait for each other.
class Tokenizer {
public:
    /// As many as fit into the registers.
    static constexpr std::size_t rowsAtOnce = 3;

    Tokenizer(const GrayResiduals& residuals, GrayToken* tokens, std::size_t* tokenCounts)
        : m_places(residuals),
          m_tokens(tokens),
          m_tokenCounts(tokenCounts),
          m_found(rowsAtOnce * static_cast<std::size_t>(residuals.width)) {
        // Rows whose tokens are longer on average become smaller when they are parsed as smooth ones.
        constexpr double smoothLength = 4.5;
        bool isSmooth = true;
        for (std::int64_t row = 0; row < residuals.rows;) {
            const std::int64_t count = isSmooth ? parseNext<true>(row) : parseNext<false>(row);
            const std::size_t found = std::max<std::size_t>(m_tokenCounts[row], 1);
            isSmooth = static_cast<double>(residuals.width) / static_cast<double>(found) > smoothLength;
            row += count;
        }
    }

    const std::array<TokenCounts, rowsAtOnce>& counts() const { return m_counts; }

private:
    /// Finds the tokens of the next rows. Returns how many they are.
    template <bool isSmooth>
    std::int64_t parseNext(std::int64_t row) {
        if (row + static_cast<std::int64_t>(rowsAtOnce) <= m_places.rows()) {
            return parse<isSmooth>(row, std::make_index_sequence<rowsAtOnce>());
        }
        return parse<isSmooth>(row, std::index_sequence<0>());
    }

    /// Finds the tokens of as many rows as there are lanes.
    template <bool isSmooth, std::size_t... lanes>
    std::int64_t parse(std::int64_t row, std::index_sequence<lanes...>) {
        std::array<RowParser<isSmooth>, sizeof...(lanes)> parsers{prepared<isSmooth>(row, lanes)...};
        while (!(parsers[lanes].isDone() || ...)) {
            (parsers[lanes].step(m_counts[lanes]), ...);
        }
        for (std::size_t lane = 0; lane < sizeof...(lanes); ++lane) {
            while (!parsers[lane].isDone()) {
                parsers[lane].step(m_counts[lane]);
            }
            const std::int64_t index = row + static_cast<std::int64_t>(lane);
            m_tokenCounts[index] =
                static_cast<std::size_t>(parsers[lane].end() - (m_tokens + index * m_places.width()));
        }
        return sizeof...(lanes);
    }

    template <bool isSmooth>
    RowParser<isSmooth> prepared(std::int64_t firstRow, std::size_t lane) {
        const std::int64_t row = firstRow + static_cast<std::int64_t>(lane);
        const std::int64_t second = m_places.placeOf(row) + 1;
        LatestRuns::Found* found = m_found.data() + lane * static_cast<std::size_t>(m_places.width());
        if constexpr (isSmooth) {
            m_latest.findFoursAndEights(m_places.value(second), second, m_places.width() - 1, found + 1);
        } else {
            m_latest.findTwosAndFours(m_places.value(second), second, m_places.width() - 1, found + 1);
        }
        return {m_places, row, found, m_tokens + row * m_places.width()};
    }

    GrayPlaces m_places;
    GrayToken* m_tokens;
    std::size_t* m_tokenCounts;
    LatestRuns m_latest;
    /// Of the rows that are parsed at once.
    std::vector<LatestRuns::Found, UninitializedAllocator<LatestRuns::Found>> m_found;
    /// Of each lane.
    std::array<TokenCounts, rowsAtOnce> m_counts;
};

void addTo(SymbolCounts& sum, const TokenCounts& counts) {
    for (std::size_t residual = 0; residual < counts.pixels.size(); ++residual) {
        sum.addGrayPixels(static_cast<std::uint8_t>(residual), 0, counts.pixels[residual]);
    }
    for (std::size_t length = 1; length < counts.lengths.size(); ++length) {
        sum.literals[lengthSymbol(static_cast<std::int64_t>(length)).symbol] += counts.lengths[length];
    }
    for (std::size_t symbol = 0; symbol < counts.distances.size(); ++symbol) {
        sum.distances[symbol] += counts.distances[symbol];
    }
}

}  // namespace

GrayTokens::GrayTokens(const GrayResiduals& residuals)
    : m_width(residuals.width),
      m_tokens(static_cast<std::size_t>(residuals.rows * residuals.width)),
      m_tokenCounts(static_cast<std::size_t>(residuals.rows)) {
    const Tokenizer tokenizer(residuals, m_tokens.data(), m_tokenCounts.data());
    for (const TokenCounts& counts : tokenizer.counts()) {
        addTo(m_counts, counts);
    }
    for (std::int64_t row = 0; row < residuals.rows; ++row) {
        const auto index = static_cast<std::size_t>(row);
        ++m_counts.literals[residuals.filters[index]];
        m_counts.addGrayPixels(residuals.values[row * m_width], residuals.firstAlphas[index], 1);
    }
}

}  // namespace quarlin

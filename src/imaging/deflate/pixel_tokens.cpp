#include "imaging/deflate/pixel_tokens.h"

#include "imaging/deflate/load_word.h"

#include <algorithm>
#include <array>
#include <bit>
#include <utility>

namespace quarlin {

namespace {

/// The shortest match, in pixels. A shorter one takes about as many bits as its pixels.
constexpr std::int64_t shortestMatch = 3;

/// Counts the bytes of pixels and the matches. Counters per channel: incrementing the same counter twice in a
/// row would wait for the first write.
class PixelCounts {
public:
    void addPixel(const std::uint8_t* pixel) {
        ++m_red[pixel[0]];
        ++m_green[pixel[1]];
        ++m_blue[pixel[2]];
        ++m_pixels;
        // The residuals of opaque pixels.
        if (pixel[3] != 0) [[unlikely]] {
            ++m_alpha[pixel[3]];
        }
    }

    void addMatch(std::int64_t pixels, std::uint32_t distance) {
        ++m_lengths[static_cast<std::size_t>(pixels)];
        ++m_distances[distanceSymbolNumber(distance)];
    }

    void addTo(SymbolCounts& counts) const {
        // Those that are not counted are 0.
        counts.literals[0] += m_pixels;
        for (std::size_t byte = 0; byte < 256; ++byte) {
            counts.literals[byte] += m_red[byte] + m_green[byte] + m_blue[byte] + m_alpha[byte];
            counts.literals[0] -= m_alpha[byte];
        }
        for (std::size_t length = shortestMatch; length < m_lengths.size(); ++length) {
            counts.literals[lengthSymbol(static_cast<std::int64_t>(length)).symbol] += m_lengths[length];
        }
        for (std::size_t symbol = 0; symbol < m_distances.size(); ++symbol) {
            counts.distances[symbol] += m_distances[symbol];
        }
    }

private:
    using ByteCounts = std::array<std::uint32_t, 256>;

    std::uint32_t m_pixels = 0;
    ByteCounts m_red{};
    ByteCounts m_green{};
    ByteCounts m_blue{};
    ByteCounts m_alpha{};
    std::array<std::uint32_t, longestMatch + 1> m_lengths{};
    std::array<std::uint32_t, distanceSymbols> m_distances{};
};

/// Knows the latest place of each run of three pixels.
///
/// Only the low 16 bits of places, in bytes, are kept. They cover twice the largest distance of a match. An
/// older entry points at other bytes, as it does when hashes collide: whoever uses it has to compare the
/// bytes.
class LatestPixelRuns {
public:
    using LowBits = std::uint16_t;

    /// Looks up the `count` runs that begin at the pixels from `pixels` on, and enters them. The first one is
    /// at byte `place`.
    void find(const std::uint8_t* pixels, std::int64_t place, std::int64_t count, LowBits* found) {
        for (std::int64_t index = 0; index < count; ++index) {
            const std::uint8_t* run = pixels + index * bytesPerPixel;
            LowBits& latest = m_latest[hash(run)];
            found[index] = latest;
            latest = static_cast<LowBits>(place + index * bytesPerPixel);
        }
    }

private:
    static constexpr unsigned hashBits = 14;

    static std::size_t hash(const std::uint8_t* run) {
        const std::uint64_t mixed = loadWord<std::uint64_t>(run) * 0x9E3779B97F4A7C15U +
                                    loadWord<std::uint32_t>(run + 8) * 0xD6E8FEB86659FD93U;
        return mixed >> (64U - hashBits);
    }

    std::array<LowBits, std::size_t{1} << hashBits> m_latest{};
};

/// How many pixels are the same from `here` and `there` on, at most `limit`. The first `shortestMatch` are.
std::int64_t matchLength(const std::uint8_t* here, const std::uint8_t* there, std::int64_t limit) {
    std::int64_t pixels = shortestMatch;
    while (pixels < limit) {
        const std::uint64_t difference = loadWord<std::uint64_t>(here + pixels * bytesPerPixel) ^
                                         loadWord<std::uint64_t>(there + pixels * bytesPerPixel);
        if (difference != 0) {
            pixels += std::countr_zero(difference) / 32;
            break;
        }
        pixels += 2;
    }
    return std::min(pixels, limit);
}

/// Finds the tokens of one row.
class RowParser {
public:
    RowParser(const std::uint8_t* pixels, std::int64_t width, std::int64_t place,
              const LatestPixelRuns::LowBits* found, PixelToken* tokens)
        : m_pixels(pixels), m_width(width), m_place(place), m_found(found), m_next(tokens) {}

    /// Whether no run is left that could match.
    bool isDone() const { return m_column + shortestMatch > m_width; }
    const PixelToken* end() const { return m_next; }

    /// Finds the next token. Where it begins depends on the one before.
    [[gnu::always_inline]] void step(PixelCounts& counts) {
        const std::uint8_t* here = m_pixels + m_column * bytesPerPixel;
        // A candidate that is too far away stands for another one. None is before the first byte.
        const std::uint32_t distance =
            static_cast<std::uint32_t>(m_place + m_column * bytesPerPixel - 1 - m_found[m_column]) %
                farthestMatch +
            1;
        const std::uint8_t* there = here - distance;
        const std::uint64_t first = loadWord<std::uint64_t>(here) ^ loadWord<std::uint64_t>(there);
        const std::uint64_t second = loadWord<std::uint64_t>(here + 8) ^ loadWord<std::uint64_t>(there + 8);
        if ((first | static_cast<std::uint32_t>(second)) != 0) {
            addPixel(counts);
            return;
        }
        const std::uint64_t third = loadWord<std::uint32_t>(here + 16) ^ loadWord<std::uint32_t>(there + 16);
        std::int64_t pixels = second == 0 ? 4 : 3;
        if ((second | third) == 0) [[unlikely]] {
            pixels = matchLength(here, there, std::min(longestMatch, m_width - m_column));
        }
        if (pixels > m_width - m_column) [[unlikely]] {
            pixels = m_width - m_column;
        }
        *m_next++ = static_cast<PixelToken>(pixels) << 16U | (distance - 1);
        counts.addMatch(pixels, distance);
        m_column += pixels;
    }

    /// Adds the pixels that are left as such.
    void finish(PixelCounts& counts) {
        while (m_column < m_width) {
            addPixel(counts);
        }
    }

private:
    void addPixel(PixelCounts& counts) {
        *m_next++ = 0;
        counts.addPixel(m_pixels + m_column * bytesPerPixel);
        ++m_column;
    }

    const std::uint8_t* m_pixels;
    std::int64_t m_width;
    std::int64_t m_place;
    const LatestPixelRuns::LowBits* m_found;
    PixelToken* m_next;
    std::int64_t m_column = 0;
};

/// Finds the tokens of a strip, several rows at a time: steps in different rows do not wait for each other.
class Tokenizer {
public:
    /// As many as fit into the registers.
    static constexpr std::size_t rowsAtOnce = 3;

    Tokenizer(const FilteredRows& filtered, PixelToken* tokens, std::size_t* tokenCounts)
        : m_filtered(filtered),
          m_tokens(tokens),
          m_tokenCounts(tokenCounts),
          m_found(rowsAtOnce * static_cast<std::size_t>(filtered.width)) {
        // Where few pixels are in matches, as in noise, more and more rows are not searched.
        constexpr std::int64_t leastSkipped = 4;
        constexpr std::int64_t mostSkipped = 16;
        std::int64_t skipped = leastSkipped;
        for (std::int64_t row = 0; row < filtered.rows;) {
            const std::int64_t count = std::min<std::int64_t>(rowsAtOnce, filtered.rows - row);
            const bool isWorthwhile = search(row, count);
            row += count;
            if (isWorthwhile) {
                skipped = leastSkipped;
                continue;
            }
            for (const std::int64_t end = std::min(row + skipped, filtered.rows); row < end; ++row) {
                skip(row);
            }
            skipped = std::min(4 * skipped, mostSkipped);
        }
    }

    const std::array<PixelCounts, rowsAtOnce>& counts() const { return m_counts; }

private:
    std::int64_t placeOf(std::int64_t row) const { return row * (m_filtered.width * bytesPerPixel + 1) + 1; }

    /// Finds the tokens of `count` rows. Returns whether a fair part of the pixels is in matches.
    bool search(std::int64_t row, std::int64_t count) {
        if (count == rowsAtOnce) {
            parse(row, std::make_index_sequence<rowsAtOnce>());
        } else {
            for (std::int64_t index = 0; index < count; ++index) {
                parse(row + index, std::index_sequence<0>());
            }
        }
        return std::any_of(m_tokenCounts + row, m_tokenCounts + row + count, [&](std::size_t tokens) {
            return tokens > 0 && tokens < static_cast<std::size_t>(m_filtered.width * 15 / 16);
        });
    }

    /// Finds the tokens of as many rows as there are lanes.
    template <std::size_t... lanes>
    void parse(std::int64_t row, std::index_sequence<lanes...>) {
        std::array<RowParser, sizeof...(lanes)> parsers{prepared(row, lanes)...};
        while (!(parsers[lanes].isDone() || ...)) {
            (parsers[lanes].step(m_counts[lanes]), ...);
        }
        for (std::size_t lane = 0; lane < sizeof...(lanes); ++lane) {
            while (!parsers[lane].isDone()) {
                parsers[lane].step(m_counts[lane]);
            }
            parsers[lane].finish(m_counts[lane]);
            keep(row + static_cast<std::int64_t>(lane), parsers[lane]);
        }
    }

    RowParser prepared(std::int64_t firstRow, std::size_t lane) {
        const std::int64_t row = firstRow + static_cast<std::int64_t>(lane);
        const std::int64_t place = placeOf(row);
        const std::uint8_t* pixels = m_filtered.data + place;
        LatestPixelRuns::LowBits* found = m_found.data() + lane * static_cast<std::size_t>(m_filtered.width);
        m_latest.find(pixels, place, m_filtered.width - shortestMatch + 1, found);
        return {pixels, m_filtered.width, place, found, m_tokens + row * m_filtered.width};
    }

    void keep(std::int64_t row, const RowParser& parser) {
        const std::int64_t count = parser.end() - (m_tokens + row * m_filtered.width);
        m_tokenCounts[row] = count == m_filtered.width ? 0 : static_cast<std::size_t>(count);
    }

    void skip(std::int64_t row) {
        const std::uint8_t* pixel = m_filtered.data + placeOf(row);
        for (std::int64_t column = 0; column < m_filtered.width; ++column, pixel += bytesPerPixel) {
            m_counts[static_cast<std::size_t>(column % 2)].addPixel(pixel);
        }
        m_tokenCounts[row] = 0;
    }

    const FilteredRows& m_filtered;
    PixelToken* m_tokens;
    std::size_t* m_tokenCounts;
    LatestPixelRuns m_latest;
    /// Of the rows that are parsed at once.
    std::vector<LatestPixelRuns::LowBits, UninitializedAllocator<LatestPixelRuns::LowBits>> m_found;
    /// Of each lane.
    std::array<PixelCounts, rowsAtOnce> m_counts;
};

}  // namespace

PixelTokens::PixelTokens(const FilteredRows& filtered)
    : m_width(filtered.width),
      m_tokens(static_cast<std::size_t>(filtered.rows * filtered.width)),
      m_tokenCounts(static_cast<std::size_t>(filtered.rows)) {
    const Tokenizer tokenizer(filtered, m_tokens.data(), m_tokenCounts.data());
    for (const PixelCounts& counts : tokenizer.counts()) {
        counts.addTo(m_counts);
    }
    for (std::int64_t row = 0; row < filtered.rows; ++row) {
        ++m_counts.literals[filtered.data[row * (m_width * bytesPerPixel + 1)]];
    }
}

}  // namespace quarlin

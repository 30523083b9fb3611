#include "imaging/deflate/pixel_deflate.h"

#include "imaging/deflate/deflate_block.h"
#include "imaging/deflate/load_word.h"

#include <algorithm>
#include <array>
#include <bit>
#include <vector>

namespace quarlin {

namespace {

/// A run of pixels without a match, and the match that follows; none at the end of a row.
struct Sequence {
    std::uint32_t literals = 0;
    std::uint16_t matched = 0;
    std::uint16_t distanceLessOne = 0;
};

/// The shortest match, in pixels. A shorter one takes about as many bits as its pixels.
constexpr std::int64_t shortestMatch = 3;
constexpr std::int64_t shortestBytes = shortestMatch * bytesPerPixel;

/// Knows the latest place of each run of three pixels.
class LatestPlaces {
public:
    explicit LatestPlaces(const std::uint8_t* begin) : m_begin(begin) {}

    /// Enters the run at `place` and returns the distance in bytes to an earlier run that may be the same, or
    /// 0 for none. Only the low 16 bits of places are kept, which cover twice the largest distance of a
    /// match. An older entry points at other bytes, as it does when hashes collide, so the runs have to be
    /// compared.
    std::uint32_t replace(const std::uint8_t* place) {
        std::uint16_t& latest = m_latest[hash(place)];
        const auto here = static_cast<std::uint16_t>(place - m_begin);
        const std::uint16_t distance = static_cast<std::uint16_t>(here - latest);
        latest = here;
        return distance <= farthestMatch ? distance : 0;
    }

private:
    static constexpr unsigned hashBits = 14;

    static std::size_t hash(const std::uint8_t* place) {
        const std::uint64_t mixed = loadWord<std::uint64_t>(place) * 0x9E3779B97F4A7C15U +
                                    loadWord<std::uint32_t>(place + 8) * 0xD6E8FEB86659FD93U;
        return mixed >> (64U - hashBits);
    }

    const std::uint8_t* m_begin;
    std::array<std::uint16_t, std::size_t{1} << hashBits> m_latest{};
};

bool isSameRun(const std::uint8_t* left, const std::uint8_t* right) {
    return loadWord<std::uint64_t>(left) == loadWord<std::uint64_t>(right) &&
           loadWord<std::uint32_t>(left + 8) == loadWord<std::uint32_t>(right + 8);
}

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

/// Finds the sequences of a strip, row by row.
class Sequencer {
public:
    explicit Sequencer(const FilteredRows& filtered) : m_latest(filtered.data) {
        const std::int64_t mostPerRow = filtered.width / shortestMatch + 1;
        m_sequences.reserve(static_cast<std::size_t>(mostPerRow * filtered.rows));
        const std::int64_t rowSize = filtered.width * bytesPerPixel + 1;
        for (std::int64_t row = 0; row < filtered.rows; ++row) {
            const std::uint8_t* begin = filtered.data + row * rowSize;
            ++m_counts.literals[*begin];
            addRow(begin + 1, begin + rowSize);
        }
        for (std::size_t byte = 0; byte < 256; ++byte) {
            m_counts.literals[byte] += m_red[byte] + m_green[byte] + m_blue[byte] + m_alpha[byte];
        }
    }

    const std::vector<Sequence>& sequences() const { return m_sequences; }
    const SymbolCounts& counts() const { return m_counts; }

private:
    void addRow(const std::uint8_t* place, const std::uint8_t* end) {
        // In noise, where run after run is new, fewer and fewer of them are looked up.
        constexpr unsigned missesPerStep = 16;
        unsigned misses = 0;
        const std::uint8_t* literals = place;
        while (end - place >= shortestBytes) {
            const std::uint32_t distance = m_latest.replace(place);
            if (distance == 0 || !isSameRun(place, place - distance)) {
                place += bytesPerPixel * (1 + misses++ / missesPerStep);
                continue;
            }
            const std::int64_t limit = std::min<std::int64_t>(longestMatch, (end - place) / bytesPerPixel);
            const std::int64_t matched = matchLength(place, place - distance, limit);
            addSequence(literals, place, matched, distance);
            literals = place + matched * bytesPerPixel;
            remember(place + bytesPerPixel, std::min(literals, end - shortestBytes + 1));
            place = literals;
            misses = 0;
        }
        addSequence(literals, end, 0, 0);
    }

    /// Enters the runs inside a match.
    void remember(const std::uint8_t* begin, const std::uint8_t* end) {
        for (const std::uint8_t* place = begin; place < end; place += bytesPerPixel) {
            m_latest.replace(place);
        }
    }

    void addSequence(const std::uint8_t* literals, const std::uint8_t* end, std::int64_t matched,
                     std::uint32_t distance) {
        m_sequences.push_back({static_cast<std::uint32_t>((end - literals) / bytesPerPixel),
                               static_cast<std::uint16_t>(matched),
                               static_cast<std::uint16_t>(distance - (matched > 0 ? 1 : 0))});
        // Counters per channel: incrementing the same counter twice in a row would wait for the first write.
        for (const std::uint8_t* pixel = literals; pixel < end; pixel += bytesPerPixel) {
            ++m_red[pixel[0]];
            ++m_green[pixel[1]];
            ++m_blue[pixel[2]];
            ++m_alpha[pixel[3]];
        }
        if (matched > 0) {
            m_counts.addMatch(matched, distance);
        }
    }

    using ByteCounts = std::array<std::uint32_t, 256>;

    LatestPlaces m_latest;
    std::vector<Sequence> m_sequences;
    SymbolCounts m_counts;
    ByteCounts m_red{};
    ByteCounts m_green{};
    ByteCounts m_blue{};
    ByteCounts m_alpha{};
};

}  // namespace

PixelBuffer deflatePixels(const FilteredRows& filtered, bool isLast) {
    const Sequencer found(filtered);
    PixelBuffer output(DeflateBlock::sizeFor(filtered.bytes()));
    DeflateBlock block(found.counts(), output, isLast);
    auto next = found.sequences().begin();
    const std::uint8_t* place = filtered.data;
    for (std::int64_t row = 0; row < filtered.rows; ++row) {
        block.addByte(*place++);
        for (bool rowEnds = false; !rowEnds; ++next) {
            for (std::uint32_t count = 0; count < next->literals; ++count) {
                block.addPixel(place[0], place[1], place[2], place[3]);
                place += bytesPerPixel;
            }
            rowEnds = next->matched == 0;
            if (!rowEnds) {
                block.addMatch(next->matched, next->distanceLessOne + 1U);
                place += next->matched * bytesPerPixel;
            }
        }
    }
    output.resize(block.finish());
    return output;
}

}  // namespace quarlin

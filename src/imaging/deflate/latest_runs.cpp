#include "imaging/deflate/latest_runs.h"

#include "imaging/deflate/load_word.h"

namespace quarlin {

namespace {

// Multiplying by odd numbers of evenly spread bits (2^32 and 2^64 divided by the golden ratio) mixes the
// lower bits into the upper ones.

template <unsigned bits>
std::size_t hashOfFour(std::uint64_t values) {
    return static_cast<std::uint32_t>(values) * 0x9E3779B1U >> (32U - bits);
}

template <unsigned bits>
std::size_t hashOfEight(std::uint64_t values) {
    return values * 0x9E3779B97F4A7C15U >> (64U - bits);
}

/// The loop is bound by its loads and stores, so it does nothing else: candidates are checked only where a
/// token begins.
template <typename Table, typename OtherTable, typename Hash, typename OtherHash>
void find(const std::uint8_t* values, std::int64_t place, std::int64_t count, LatestRuns::Found* found,
          Table& table, OtherTable& otherTable, const Hash& hash, const OtherHash& otherHash) {
    for (std::int64_t index = 0; index < count; ++index) {
        const auto word = loadWord<std::uint64_t>(values + index);
        LatestRuns::LowBits& latest = table[hash(word)];
        LatestRuns::LowBits& otherLatest = otherTable[otherHash(word)];
        found[index] = latest | static_cast<LatestRuns::Found>(otherLatest) << 16U;
        latest = static_cast<LatestRuns::LowBits>(place + index);
        otherLatest = static_cast<LatestRuns::LowBits>(place + index);
    }
}

}  // namespace

void LatestRuns::findTwosAndFours(const std::uint8_t* values, std::int64_t place, std::int64_t count,
                                  Found* found) {
    find(
        values, place, count, found, m_twos, m_fours,
        [](std::uint64_t word) { return static_cast<std::uint16_t>(word); }, hashOfFour<hashBits>);
}

void LatestRuns::findFoursAndEights(const std::uint8_t* values, std::int64_t place, std::int64_t count,
                                    Found* found) {
    find(values, place, count, found, m_fours, m_eights, hashOfFour<hashBits>, hashOfEight<hashBits>);
}

}  // namespace quarlin

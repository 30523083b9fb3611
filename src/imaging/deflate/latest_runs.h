#pragma once

#include <array>
#include <cstdint>

namespace quarlin {

/// Knows for every run of two, four or eight residuals the latest place of the same run.
///
/// Only the low 16 bits of places are kept. An entry may be older than that, and then points at other
/// residuals, as it does when hashes collide: whoever uses it has to compare the residuals.
class LatestRuns {
public:
    using LowBits = std::uint16_t;

    /// The places of the same short run, low half, and of the same long run, high half.
    using Found = std::uint32_t;

    /// For each of the places from `place` on, `count` of them, whose residuals begin at `values`: looks up
    /// the runs of two and of four, and enters the place as their latest. Seven bytes after the last residual
    /// must be readable.
    void findTwosAndFours(const std::uint8_t* values, std::int64_t place, std::int64_t count, Found* found);
    /// The same for the runs of four and of eight.
    void findFoursAndEights(const std::uint8_t* values, std::int64_t place, std::int64_t count, Found* found);

private:
    static constexpr unsigned hashBits = 15;
    template <unsigned bits>
    using Table = std::array<LowBits, std::size_t{1} << bits>;

    Table<16> m_twos{};
    Table<hashBits> m_fours{};
    Table<hashBits> m_eights{};
};

}  // namespace quarlin

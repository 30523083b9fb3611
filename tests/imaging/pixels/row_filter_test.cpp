#include "imaging/pixels/row_filter.h"
#include "each_instruction_set.h"
#include "imaging/pixels/lanczos_taps.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <vector>

using namespace quarlin;

namespace {

constexpr std::int32_t one = 1 << 14;

/// Rows of samples in a range, padded as the filter needs it.
std::vector<std::vector<std::int32_t>> noiseRows(std::size_t count, std::size_t samples, std::int32_t lowest,
                                                 std::int32_t highest) {
    std::mt19937 random(static_cast<unsigned>(count * 1000 + samples));
    std::uniform_int_distribution<std::int32_t> value(lowest, highest);
    const std::size_t padding = filteredRowPadding;
    std::vector<std::vector<std::int32_t>> rows(count);
    for (auto& row : rows) {
        row.resize((samples + padding - 1) / padding * padding);
        std::generate(row.begin(), row.end(), [&] { return value(random); });
    }
    return rows;
}

void expectThatVectorsMatch(const std::vector<std::vector<std::int32_t>>& rows, std::size_t samples) {
    const auto height = static_cast<std::int64_t>(rows.size());
    std::vector<const std::int32_t*> pointers;
    for (const auto& row : rows) {
        pointers.push_back(row.data());
    }
    for (const FilterTaps& taps : lanczosTaps(height, 3)) {
        const std::span used =
            std::span(pointers).subspan(static_cast<std::size_t>(taps.first), taps.weights.size());
        std::vector<std::uint8_t> expected(samples);
        plain::filterRows(used, taps.weights, expected);
        forEachInstructionSet([&] {
            std::vector<std::uint8_t> output(samples);
            filterRows(used, taps.weights, output);
            ASSERT_EQ(output, expected) << samples << " samples of " << height << " rows";
        });
    }
}

TEST(RowFilter, MatchesItsPlainTwinAtEveryWidthOnEveryInstructionSet) {
    for (std::size_t pixels = 1; pixels <= 40; ++pixels) {
        expectThatVectorsMatch(noiseRows(11, pixels * 4, 0, 255 * one), pixels * 4);
    }
}

TEST(RowFilter, MatchesItsPlainTwinWhereSumsOvershoot) {
    // Filtered columns go below 0 and above 255.
    for (const std::size_t height : {1U, 2U, 5U, 24U}) {
        expectThatVectorsMatch(noiseRows(height, 400, -60 * one, 320 * one), 400);
    }
}

TEST(RowFilter, MatchesItsPlainTwinNextToHalves) {
    // Multiples of one half are where rounding decides.
    for (const std::size_t height : {1U, 3U}) {
        auto rows = noiseRows(height, 400, 0, 510);
        for (auto& row : rows) {
            std::transform(row.begin(), row.end(), row.begin(),
                           [](std::int32_t value) { return value * one / 2; });
        }
        expectThatVectorsMatch(rows, 400);
    }
}

}  // namespace

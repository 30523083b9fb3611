#include "imaging/pixels/column_filter.h"
#include "each_instruction_set.h"
#include "picture.h"

#include <gtest/gtest.h>

#include <vector>

using namespace quarlin;

namespace {

/// Filters the rows of a picture of noise from one width to another, with and without vectors.
void expectThatVectorsMatch(int from, int to, int rows) {
    fixtures::Picture picture = fixtures::noisePicture(from, rows, static_cast<std::uint64_t>(from), true);
    const auto bytesPerRow = static_cast<std::int64_t>(picture.bytes.size()) / rows;
    picture.bytes.resize(picture.bytes.size() + ColumnFilter::bytesReadPastTheEnd, 0xFF);
    const ColumnFilter filter(lanczosTaps(from, to));
    const auto filtered = [&](auto&& method) {
        std::vector<std::int32_t> samples(static_cast<std::size_t>(rows * to) * 4);
        std::vector<std::int32_t*> output;
        for (std::size_t row = 0; row < static_cast<std::size_t>(rows); ++row) {
            output.push_back(samples.data() + row * static_cast<std::size_t>(to) * 4);
        }
        (filter.*method)(picture.bytes.data(), bytesPerRow, output);
        return samples;
    };
    const std::vector<std::int32_t> expected = filtered(&ColumnFilter::filterPlainly);
    forEachInstructionSet([&] {
        ASSERT_EQ(filtered(&ColumnFilter::filter), expected) << from << " to " << to << ", rows: " << rows;
    });
}

TEST(ColumnFilter, MatchesItsPlainTwinAtEveryWidthOnEveryInstructionSet) {
    for (int from = 1; from <= 70; ++from) {
        for (const int to : {1, 2, 3, 7, 16, 33, 64, 70}) {
            expectThatVectorsMatch(from, to, 3);
        }
    }
}

TEST(ColumnFilter, MatchesItsPlainTwinForEveryNumberOfRows) {
    for (int rows = 1; rows <= 9; ++rows) {
        expectThatVectorsMatch(41, 17, rows);
    }
}

TEST(ColumnFilter, MatchesItsPlainTwinWithThousandsOfTaps) {
    // 4096 taps are the most that the vectors take: 682 pixels each.
    for (const int from : {682, 683, 4'000, 20'000}) {
        expectThatVectorsMatch(from, 1, 2);
    }
}

TEST(ColumnFilter, AddsUpTheLargestBytesWithoutOverflow) {
    for (const int from : {2, 24, 600}) {
        std::vector<std::uint8_t> white(
            static_cast<std::size_t>(from) * 4 + ColumnFilter::bytesReadPastTheEnd, 255);
        const ColumnFilter filter(lanczosTaps(from, 2));
        forEachInstructionSet([&] {
            std::vector<std::int32_t> samples(8);
            std::int32_t* const output[] = {samples.data()};
            filter.filter(white.data(), from * 4, output);
            ASSERT_EQ(samples, std::vector<std::int32_t>(8, 255 << 14)) << from;
        });
    }
}

}  // namespace

#include "imaging/pixels/resample_rows.h"
#include "each_instruction_set.h"
#include "picture.h"

#include <gtest/gtest.h>

#include <vector>

using namespace quarlin;

namespace {

TEST(ResampleRows, MatchTheirPlainTwinAtEverySizeOnEveryInstructionSet) {
    for (int from = 1; from <= 70; ++from) {
        const fixtures::Picture row = fixtures::noisePicture(from, 1, static_cast<std::uint64_t>(from), true);
        for (const int to : {1, 2, 3, 7, 16, 33, 64, 70}) {
            const std::vector<FilterTaps> taps = lanczosTaps(from, to);
            std::vector<double> wide(row.bytes.size());
            std::vector<float> expected(taps.size() * 4);
            plain::filterPixelRow(row.bytes.data(), taps, wide, expected.data());
            forEachInstructionSet([&] {
                std::vector<float> filtered(expected.size());
                filterPixelRow(row.bytes.data(), taps, wide, filtered.data());
                ASSERT_EQ(filtered, expected) << from << " to " << to;
            });
        }
    }
}

}  // namespace

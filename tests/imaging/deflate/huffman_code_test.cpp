#include "imaging/deflate/huffman_code.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <set>

using namespace quarlin;

namespace {

/// The share of the code space that a code uses, in units of 2^-15: a complete code uses 2^15.
unsigned usedShare(const HuffmanCode& code) {
    unsigned used = 0;
    for (const std::uint8_t length : code.lengths) {
        used += length > 0 ? 1U << (15U - length) : 0U;
    }
    return used;
}

TEST(HuffmanCode, IsCompleteAndWithinItsLimitForAnyCounts) {
    std::mt19937_64 random(3);
    for (int repeat = 0; repeat < 500; ++repeat) {
        std::vector<std::uint32_t> counts(2 + random() % 285);
        for (std::uint32_t& count : counts) {
            count = random() % 3 == 0 ? 0 : static_cast<std::uint32_t>(random() >> (32 + random() % 30));
        }
        for (const int longest : {9, 15}) {
            const HuffmanCode code = makeHuffmanCode(counts, longest);
            ASSERT_EQ(usedShare(code), 1U << 15U);
            for (std::size_t symbol = 0; symbol < counts.size(); ++symbol) {
                ASSERT_LE(code.lengths[symbol], longest);
                ASSERT_TRUE(counts[symbol] == 0 || code.lengths[symbol] > 0);
            }
        }
    }
}

TEST(HuffmanCode, CodesThatWouldBeLongerAreCutToTheLimit) {
    // Each count is the sum of the two before, which gives the deepest possible tree.
    std::vector<std::uint32_t> counts{1, 1};
    while (counts.size() < 40) {
        counts.push_back(counts[counts.size() - 1] + counts[counts.size() - 2]);
    }
    const HuffmanCode code = makeHuffmanCode(counts, 15);
    EXPECT_EQ(usedShare(code), 1U << 15U);
    EXPECT_EQ(*std::max_element(code.lengths.begin(), code.lengths.end()), 15);
    EXPECT_EQ(code.lengths.back(), 1);
}

TEST(HuffmanCode, MoreFrequentSymbolsNeverTakeLongerCodes) {
    const std::vector<std::uint32_t> counts{5, 90, 1, 0, 30, 2, 17};
    const HuffmanCode code = makeHuffmanCode(counts, 15);
    EXPECT_EQ(code.lengths[3], 0);
    EXPECT_LE(code.lengths[1], code.lengths[4]);
    EXPECT_LE(code.lengths[4], code.lengths[6]);
    EXPECT_LE(code.lengths[6], code.lengths[0]);
    EXPECT_LE(code.lengths[0], code.lengths[5]);
    EXPECT_LE(code.lengths[5], code.lengths[2]);
}

TEST(HuffmanCode, FewerThanTwoSymbolsStillGiveTwoCodes) {
    for (const std::vector<std::uint32_t>& counts :
         {std::vector<std::uint32_t>{0, 0, 0}, {0, 0, 9}, {4, 0, 0}}) {
        const HuffmanCode code = makeHuffmanCode(counts, 15);
        EXPECT_EQ(std::count(code.lengths.begin(), code.lengths.end(), 1), 2);
        const auto used =
            std::find_if(counts.begin(), counts.end(), [](std::uint32_t count) { return count > 0; });
        if (used != counts.end()) {
            EXPECT_EQ(code.lengths[static_cast<std::size_t>(used - counts.begin())], 1);
        }
    }
}

TEST(HuffmanCode, NoCodeBeginsAnother) {
    const HuffmanCode code = makeHuffmanCode(std::vector<std::uint32_t>{1, 2, 3, 4, 50, 60, 7}, 15);
    for (std::size_t left = 0; left < code.lengths.size(); ++left) {
        for (std::size_t right = 0; right < code.lengths.size(); ++right) {
            if (left != right && code.lengths[left] <= code.lengths[right]) {
                EXPECT_NE(code.bits[left], code.bits[right] & ((1U << code.lengths[left]) - 1U));
            }
        }
    }
}

}  // namespace

#include "imaging/png/filter.h"
#include "byte_comparison.h"
#include "each_instruction_set.h"
#include "imaging/png/unfilter.h"
#include "picture.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <set>
#include <utility>

using namespace quarlin;

namespace {

constexpr std::array filters{PngFilter::none, PngFilter::sub, PngFilter::up, PngFilter::average,
                             PngFilter::paeth};

using Bytes = std::vector<std::uint8_t>;

Bytes filtered(PngFilter filter, std::size_t pixelSize, const Bytes& row, const Bytes& above) {
    Bytes residuals(row.size());
    applyPngFilter(filter, pixelSize, row, above, residuals);
    return residuals;
}

Bytes plainlyFiltered(PngFilter filter, std::size_t pixelSize, const Bytes& row, const Bytes& above) {
    Bytes residuals(row.size());
    plain::applyPngFilter(filter, pixelSize, row, above, residuals);
    return residuals;
}

TEST(PngFilter, EveryFilterMatchesItsPlainTwinForRowsOfEveryLength) {
    for (const std::size_t pixelSize : {std::size_t{1}, std::size_t{4}}) {
        for (int pixels = 1; pixels <= 150; ++pixels) {
            const auto size = static_cast<std::size_t>(pixels) * pixelSize;
            const fixtures::Picture noise =
                fixtures::noisePicture(pixels, 2, static_cast<std::uint64_t>(pixels), true);
            const Bytes row(noise.bytes.begin(), noise.bytes.begin() + static_cast<std::ptrdiff_t>(size));
            const Bytes above(noise.bytes.end() - static_cast<std::ptrdiff_t>(size), noise.bytes.end());
            for (const PngFilter filter : filters) {
                const Bytes expected = plainlyFiltered(filter, pixelSize, row, above);
                forEachInstructionSet(
                    [&] { ASSERT_EQ(expected, filtered(filter, pixelSize, row, above)) << pixels; });
            }
        }
    }
}

/// A row whose second, fourth, ... samples have `left` to their left, and a row above it, with every pair of
/// samples above and above left.
std::pair<Bytes, Bytes> everyPairNextTo(std::size_t left) {
    constexpr std::size_t values = 256;
    Bytes row(2 * values * values);
    Bytes above(row.size());
    for (std::size_t pair = 0; pair < values * values; ++pair) {
        row[2 * pair] = static_cast<std::uint8_t>(left);
        above[2 * pair] = static_cast<std::uint8_t>(pair / values);
        above[2 * pair + 1] = static_cast<std::uint8_t>(pair % values);
    }
    return {row, above};
}

TEST(PngFilter, AverageAndPaethAreExactForEveryTripleOfNeighbors) {
    for (std::size_t left = 0; left < 256; ++left) {
        const auto [row, above] = everyPairNextTo(left);
        for (const PngFilter filter : {PngFilter::average, PngFilter::paeth}) {
            ASSERT_EQ(plainlyFiltered(filter, 1, row, above), filtered(filter, 1, row, above)) << left;
        }
    }
}

/// Filters two rows, each with its own filter, and unfilters them again.
void expectUnfilteringGivesRowsBack(std::size_t pixelSize, int pixels, PngFilter first, PngFilter second) {
    const fixtures::Picture noise =
        fixtures::noisePicture(pixels, 3, static_cast<std::uint64_t>(pixels), true);
    const std::size_t size = static_cast<std::size_t>(pixels) * pixelSize;
    const auto rowOfNoise = [&](std::ptrdiff_t number) {
        const auto begin = noise.bytes.begin() + number * pixels * 4;
        return Bytes(begin, begin + static_cast<std::ptrdiff_t>(size));
    };
    Bytes above = rowOfNoise(0);
    const Bytes rows[] = {rowOfNoise(1), rowOfNoise(2)};
    // Each row after the number of its filter.
    Bytes restored{static_cast<std::uint8_t>(first)};
    const auto append = [&](const Bytes& residuals) {
        restored.insert(restored.end(), residuals.begin(), residuals.end());
    };
    append(plainlyFiltered(first, pixelSize, rows[0], above));
    restored.push_back(static_cast<std::uint8_t>(second));
    append(plainlyFiltered(second, pixelSize, rows[1], rows[0]));
    // The bytes after the rows must neither matter nor change.
    restored.resize(restored.size() + unfilterSpare, 99);
    above.resize(size + unfilterSpare, 77);

    std::uint8_t* row = restored.data() + 1;
    const std::int64_t done = unfilterPngRows(pixelSize, row, size, 2, above.data());
    ASSERT_TRUE(done == 1 || done == 2);
    std::uint8_t* const lower = row + size + 1;
    if (done == 1) {
        ASSERT_EQ(unfilterPngRows(pixelSize, lower, size, 1, row), 1);
    }
    EXPECT_TRUE(std::equal(rows[0].begin(), rows[0].end(), row));
    EXPECT_TRUE(std::equal(rows[1].begin(), rows[1].end(), lower));
    EXPECT_EQ(restored[0], static_cast<std::uint8_t>(first));
    EXPECT_EQ(restored[size + 1], static_cast<std::uint8_t>(second));
    EXPECT_EQ(Bytes(restored.end() - unfilterSpare, restored.end()), Bytes(unfilterSpare, 99));
}

TEST(PngFilter, UnfilteringGivesTheRowsBackOnEveryInstructionSet) {
    for (std::size_t pixelSize = 1; pixelSize <= 4; ++pixelSize) {
        for (const int pixels : {1, 2, 3, 4, 5, 39, 40}) {
            for (const PngFilter first : filters) {
                for (const PngFilter second : filters) {
                    SCOPED_TRACE(pixels);
                    forEachInstructionSet(
                        [&] { expectUnfilteringGivesRowsBack(pixelSize, pixels, first, second); });
                }
            }
        }
    }
}

TEST(PngFilter, UnfilteringIsExactForEveryTripleOfNeighbors) {
    for (std::size_t left = 0; left < 256; ++left) {
        const auto [row, above] = everyPairNextTo(left);
        for (const PngFilter filter : {PngFilter::average, PngFilter::paeth}) {
            Bytes restored{static_cast<std::uint8_t>(filter)};
            const Bytes residuals = plainlyFiltered(filter, 1, row, above);
            restored.insert(restored.end(), residuals.begin(), residuals.end());
            ASSERT_EQ(unfilterPngRows(1, restored.data() + 1, row.size(), 1, above.data()), 1);
            ASSERT_TRUE(std::equal(row.begin(), row.end(), restored.begin() + 1)) << left;
        }
    }
}

/// The sum of the magnitudes of the residuals, as signed bytes.
unsigned cost(const Bytes& residuals) {
    unsigned sum = 0;
    for (const std::uint8_t value : residuals) {
        sum += static_cast<unsigned>(std::abs(static_cast<std::int8_t>(value)));
    }
    return sum;
}

TEST(PngFilter, TheChosenFilterLeavesTheSmallestResiduals) {
    std::set<PngFilter> chosen;
    for (const std::size_t pixelSize : {std::size_t{1}, std::size_t{4}}) {
        for (int pixels = 1; pixels <= 150; ++pixels) {
            const auto size = static_cast<std::size_t>(pixels) * pixelSize;
            const fixtures::Picture noise =
                fixtures::noisePicture(pixels, 2, static_cast<std::uint64_t>(pixels), true);
            const Bytes row(noise.bytes.begin(), noise.bytes.begin() + static_cast<std::ptrdiff_t>(size));
            const Bytes above(noise.bytes.end() - static_cast<std::ptrdiff_t>(size), noise.bytes.end());
            // Among filters that are equally good, the first one of this order.
            PngFilter best = PngFilter::paeth;
            for (const PngFilter filter : {PngFilter::up, PngFilter::sub, PngFilter::average}) {
                if (cost(plainlyFiltered(filter, pixelSize, row, above)) <
                    cost(plainlyFiltered(best, pixelSize, row, above))) {
                    best = filter;
                }
            }
            forEachInstructionSet([&] { ASSERT_EQ(choosePngFilter(pixelSize, row, above), best) << pixels; });
            chosen.insert(best);
        }
    }
    EXPECT_EQ(chosen.size(), 4U);
}

}  // namespace

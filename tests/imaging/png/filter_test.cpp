#include "imaging/png/filter.h"
#include "byte_comparison.h"
#include "each_instruction_set.h"
#include "imaging/png/unfilter.h"
#include "picture.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <set>

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

TEST(PngFilter, AverageAndPaethAreExactForEveryTripleOfNeighbors) {
    constexpr std::size_t values = 256;
    for (std::size_t left = 0; left < values; ++left) {
        // Every second sample has `left` to its left, and every pair of samples above and above left.
        Bytes row(2 * values * values);
        Bytes above(row.size());
        for (std::size_t pair = 0; pair < values * values; ++pair) {
            row[2 * pair] = static_cast<std::uint8_t>(left);
            above[2 * pair] = static_cast<std::uint8_t>(pair / values);
            above[2 * pair + 1] = static_cast<std::uint8_t>(pair % values);
        }
        for (const PngFilter filter : {PngFilter::average, PngFilter::paeth}) {
            ASSERT_EQ(plainlyFiltered(filter, 1, row, above), filtered(filter, 1, row, above)) << left;
        }
    }
}

template <int pixelSize>
void expectUnfilteringGivesRowsBack() {
    for (int pixels = 1; pixels <= 40; ++pixels) {
        const fixtures::Picture noise =
            fixtures::noisePicture(pixels, 2, static_cast<std::uint64_t>(pixels), true);
        const std::ptrdiff_t size = pixels * pixelSize;
        const Bytes row(noise.bytes.begin(), noise.bytes.begin() + size);
        Bytes above(noise.bytes.end() - size, noise.bytes.end());
        for (const PngFilter filter : filters) {
            Bytes restored = plainlyFiltered(filter, pixelSize, row, above);
            // The bytes after the row must neither matter nor change.
            restored.resize(row.size() + unfilterSpare, 99);
            above.resize(restored.size(), 77);
            ASSERT_TRUE(unfilterPngRow<pixelSize>(static_cast<std::uint8_t>(filter),
                                                  {restored.data(), row.size()}, above.data()));
            above.resize(row.size());
            ASSERT_TRUE(std::equal(row.begin(), row.end(), restored.begin())) << pixels;
            ASSERT_EQ(Bytes(restored.end() - unfilterSpare, restored.end()), Bytes(unfilterSpare, 99));
        }
    }
}

TEST(PngFilter, UnfilteringGivesTheRowBack) {
    expectUnfilteringGivesRowsBack<1>();
    expectUnfilteringGivesRowsBack<2>();
    expectUnfilteringGivesRowsBack<3>();
    expectUnfilteringGivesRowsBack<4>();
}

TEST(PngFilter, AnUnknownFilterIsRejected) {
    Bytes row(8);
    const Bytes above(8);
    EXPECT_FALSE(unfilterPngRow<4>(5, row, above.data()));
    EXPECT_FALSE(unfilterPngRow<4>(255, row, above.data()));
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

// The streams of the gray coder, inflated by zlib.

#include "imaging/deflate/gray_deflate.h"
#include "byte_comparison.h"
#include "each_instruction_set.h"
#include "imaging/pixels/pixel_image.h"
#include "picture.h"
#include "raw_inflate.h"

#include <gtest/gtest.h>

#include <zlib.h>

#include <random>

using namespace quarlin;

namespace {

struct Residuals {
    std::int64_t width;
    std::int64_t rows;
    std::vector<std::uint8_t> filters;
    std::vector<std::uint8_t> firstAlphas;
    std::vector<std::uint8_t> values;

    GrayResiduals view() const { return {width, rows, filters, firstAlphas, values.data()}; }

    /// The bytes that the residuals describe.
    std::vector<std::uint8_t> bytes() const {
        std::vector<std::uint8_t> result;
        for (std::int64_t row = 0; row < rows; ++row) {
            result.push_back(filters[static_cast<std::size_t>(row)]);
            for (std::int64_t x = 0; x < width; ++x) {
                const std::uint8_t value = values[static_cast<std::size_t>(row * width + x)];
                const std::uint8_t alpha =
                    x == 0 ? firstAlphas[static_cast<std::size_t>(row)] : std::uint8_t{0};
                result.insert(result.end(), {value, value, value, alpha});
            }
        }
        return result;
    }
};

/// Residuals of the given spread around 0: all the same for 0, noise for 256.
Residuals residuals(std::int64_t width, std::int64_t rows, int spread, std::uint64_t seed) {
    std::mt19937_64 random(seed);
    Residuals made{width, rows, {}, {}, {}};
    constexpr std::array<std::uint8_t, 3> alphas{0, 128, 255};
    for (std::int64_t row = 0; row < rows; ++row) {
        made.filters.push_back(static_cast<std::uint8_t>(random() % 5));
        made.firstAlphas.push_back(alphas[random() % alphas.size()]);
    }
    for (std::int64_t index = 0; index < width * rows; ++index) {
        const int value =
            spread == 0 ? 7 : static_cast<int>(random() % static_cast<unsigned>(spread)) - spread / 2;
        made.values.push_back(static_cast<std::uint8_t>(value));
    }
    made.values.resize(made.values.size() + 8);
    return made;
}

QByteArray deflated(const Residuals& given, bool isLast) {
    QByteArray stream;
    deflateGray(given.view(), isLast, stream);
    return stream;
}

void expectRoundTrip(const Residuals& given) {
    const std::vector<std::uint8_t> expected = given.bytes();
    ASSERT_EQ(static_cast<std::size_t>(given.view().bytes()), expected.size());
    for (const bool isLast : {false, true}) {
        ASSERT_TRUE(sameBytes(expected, rawInflate(deflated(given, isLast), expected.size(), isLast)));
    }
}

/// All instruction sets give the checksum that zlib gives.
void expectAdlerOfZlib(const Residuals& given) {
    const std::vector<std::uint8_t> bytes = given.bytes();
    const uLong expected = adler32(1, bytes.data(), static_cast<uInt>(bytes.size()));
    forEachInstructionSet([&] { ASSERT_EQ(grayAdler(given.view()), expected); });
}

TEST(GrayAdler, IsThatOfTheBytesForRowsOfEveryLength) {
    for (std::int64_t width = 1; width <= 200; ++width) {
        SCOPED_TRACE(width);
        expectAdlerOfZlib(residuals(width, 3, 256, static_cast<std::uint64_t>(width)));
    }
}

TEST(GrayAdler, IsThatOfTheBytesForLongRowsOfTheLargestResiduals) {
    Residuals given = residuals(70'000, 2, 0, 1);
    std::fill(given.values.begin(), given.values.end(), std::uint8_t{255});
    expectAdlerOfZlib(given);
}

TEST(GrayDeflate, EverySmallSizeInflatesToTheSameBytes) {
    std::uint64_t seed = 0;
    for (std::int64_t width = 1; width <= 70; ++width) {
        for (const std::int64_t rows : {1, 2, 7, 70}) {
            for (const int spread : {0, 2, 9, 256}) {
                SCOPED_TRACE(testing::Message() << width << 'x' << rows << " spread " << spread);
                expectRoundTrip(residuals(width, rows, spread, seed++));
                ASSERT_FALSE(HasFatalFailure());
            }
        }
    }
}

TEST(GrayDeflate, MatchesReachAcrossTheWholeWindowAndNoFarther) {
    // The same noise repeated, at distances below, at and above the largest distance of a match.
    for (const std::int64_t width : {8190, 8191, 8192, 8193, 9000}) {
        Residuals given = residuals(width, 4, 256, 5);
        for (std::int64_t index = width; index < width * 4; ++index) {
            given.values[static_cast<std::size_t>(index)] =
                given.values[static_cast<std::size_t>(index - width)];
        }
        SCOPED_TRACE(width);
        expectRoundTrip(given);
    }
}

TEST(GrayDeflate, LongStripsOfEveryCharacterInflateToTheSameBytes) {
    for (const int spread : {0, 2, 3, 5, 16, 60, 256}) {
        SCOPED_TRACE(spread);
        expectRoundTrip(residuals(4096, 64, spread, static_cast<std::uint64_t>(spread)));
    }
}

TEST(GrayDeflate, FlatRowsTakeFewBytes) { EXPECT_LT(deflated(residuals(4096, 64, 0, 1), true).size(), 4096); }

}  // namespace

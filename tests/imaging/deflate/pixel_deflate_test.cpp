// The streams of the pixel coder, inflated by zlib.

#include "imaging/deflate/pixel_deflate.h"
#include "byte_comparison.h"
#include "raw_inflate.h"

#include <gtest/gtest.h>

#include <array>
#include <random>

using namespace quarlin;

namespace {

/// Filtered rows of pixels chosen from a number of different ones; 0 means any pixel.
std::vector<std::uint8_t> filteredRows(std::int64_t width, std::int64_t rows, std::uint32_t kinds,
                                       std::uint64_t seed) {
    std::mt19937_64 random(seed);
    std::vector<std::uint8_t> bytes;
    for (std::int64_t row = 0; row < rows; ++row) {
        bytes.push_back(static_cast<std::uint8_t>(random() % 5));
        for (std::int64_t x = 0; x < width; ++x) {
            const auto number = static_cast<std::uint32_t>(random());
            const std::uint32_t pixel = kinds == 0 ? number : number % kinds * 0x01020304U;
            for (const unsigned shift : {0U, 8U, 16U, 24U}) {
                bytes.push_back(static_cast<std::uint8_t>(pixel >> shift));
            }
        }
    }
    return bytes;
}

QByteArray deflated(const FilteredRows& filtered, bool isLast) {
    QByteArray stream;
    deflatePixels(filtered, isLast, stream);
    return stream;
}

void expectRoundTrip(const std::vector<std::uint8_t>& bytes, std::int64_t width, std::int64_t rows) {
    std::vector<std::uint8_t> withSpare(bytes);
    withSpare.resize(bytes.size() + 8);
    const FilteredRows filtered{width, rows, withSpare.data()};
    ASSERT_EQ(static_cast<std::size_t>(filtered.bytes()), bytes.size());
    for (const bool isLast : {false, true}) {
        ASSERT_TRUE(sameBytes(bytes, rawInflate(deflated(filtered, isLast), bytes.size(), isLast)));
    }
}

TEST(PixelDeflate, EverySmallSizeInflatesToTheSameBytes) {
    std::uint64_t seed = 0;
    for (std::int64_t width = 1; width <= 70; ++width) {
        for (const std::int64_t rows : {1, 2, 7, 70}) {
            for (const std::uint32_t kinds : {1U, 2U, 5U, 0U}) {
                SCOPED_TRACE(testing::Message() << width << 'x' << rows << " kinds " << kinds);
                expectRoundTrip(filteredRows(width, rows, kinds, seed++), width, rows);
                ASSERT_FALSE(HasFatalFailure());
            }
        }
    }
}

TEST(PixelDeflate, LongStripsOfEveryCharacterInflateToTheSameBytes) {
    for (const std::uint32_t kinds : {1U, 2U, 3U, 5U, 60U, 4000U, 0U}) {
        SCOPED_TRACE(kinds);
        expectRoundTrip(filteredRows(4096, 64, kinds, kinds), 4096, 64);
    }
}

TEST(PixelDeflate, MatchesReachAcrossTheWholeWindowAndNoFarther) {
    // The same noise repeated, at distances below, at and above the largest distance of a match.
    for (const std::int64_t width : {8190, 8191, 8192, 8193, 16384}) {
        std::vector<std::uint8_t> bytes = filteredRows(width, 4, 0, 5);
        const auto rowSize = static_cast<std::size_t>(width * 4 + 1);
        for (std::size_t index = rowSize; index < bytes.size(); ++index) {
            bytes[index] = bytes[index - rowSize];
        }
        SCOPED_TRACE(width);
        expectRoundTrip(bytes, width, 4);
    }
}

TEST(PixelDeflate, FlatRowsTakeFewBytes) {
    std::vector<std::uint8_t> bytes = filteredRows(4096, 64, 1, 1);
    bytes.resize(bytes.size() + 8);
    EXPECT_LT(deflated({4096, 64, bytes.data()}, true).size(), 8192);
}

TEST(PixelDeflate, RepeatedRowsTakeLittleMoreThanOne) {
    const std::vector<std::uint8_t> row = filteredRows(1000, 1, 0, 7);
    std::vector<std::uint8_t> bytes;
    for (int count = 0; count < 64; ++count) {
        bytes.insert(bytes.end(), row.begin(), row.end());
    }
    bytes.resize(bytes.size() + 8);
    EXPECT_LT(deflated({1000, 64, bytes.data()}, true).size(), std::ssize(row) * 2);
}

}  // namespace

#include "parallel.h"

#include <gtest/gtest.h>

#include <atomic>
#include <stdexcept>
#include <string>
#include <vector>

using namespace quarlin;

namespace {

TEST(Parallel, EveryIndexIsDoneOnceOnAnyNumberOfThreads) {
    for (const unsigned threads : {1U, 2U, 3U, 16U}) {
        for (const std::int64_t count : {0, 1, 2, 100}) {
            std::vector<std::atomic<int>> done(static_cast<std::size_t>(count));
            forEachInParallel(
                count, [&](std::int64_t index) { ++done[static_cast<std::size_t>(index)]; }, threads);
            for (const std::atomic<int>& times : done) {
                EXPECT_EQ(times, 1);
            }
        }
    }
}

TEST(Parallel, TheFailureOfTheLowestIndexIsThrownOnceAllAreDone) {
    for (const unsigned threads : {1U, 2U, 8U}) {
        std::atomic<int> done = 0;
        try {
            forEachInParallel(
                50,
                [&](std::int64_t index) {
                    ++done;
                    if (index % 20 == 13) {
                        throw std::runtime_error(std::to_string(index));
                    }
                },
                threads);
            FAIL() << "nothing was thrown";
        } catch (const std::runtime_error& error) {
            EXPECT_STREQ(error.what(), "13");
        }
        EXPECT_EQ(done, 50);
    }
}

TEST(RowBands, CoverEveryRowOnce) {
    for (std::int64_t height = 1; height <= 20; ++height) {
        for (std::int64_t rowsPerBand = 1; rowsPerBand <= 22; ++rowsPerBand) {
            const RowBands bands(height, rowsPerBand);
            std::int64_t next = 0;
            for (std::int64_t band = 0; band < bands.count(); ++band) {
                EXPECT_EQ(bands[band].first, next);
                EXPECT_GT(bands[band].count, 0);
                next = bands[band].end();
            }
            EXPECT_EQ(next, height);
        }
    }
}

}  // namespace

#include "imaging/base/parallel.h"

#include <gtest/gtest.h>

#include <array>
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

TEST(RowStrips, CoverEveryRowOnce) {
    for (std::int64_t height = 1; height <= 20; ++height) {
        for (std::int64_t rowsPerStrip = 1; rowsPerStrip <= 22; ++rowsPerStrip) {
            const RowStrips strips(height, rowsPerStrip);
            std::int64_t next = 0;
            for (std::int64_t strip = 0; strip < strips.count(); ++strip) {
                EXPECT_EQ(strips[strip].first, next);
                EXPECT_GT(strips[strip].count, 0);
                next = strips[strip].end();
            }
            EXPECT_EQ(next, height);
        }
    }
}

TEST(DoInStep, EveryTurnIsTakenInOrderAndTheSecondStepFollowsTheFirst) {
    constexpr std::int64_t turns = 200;
    constexpr std::int64_t ahead = 3;
    std::array<std::int64_t, ahead> buffers{};
    std::vector<std::int64_t> seen;
    const bool isDone = doInStep(
        turns, ahead,
        [&](std::int64_t turn) {
            buffers[static_cast<std::size_t>(turn % ahead)] = turn;
            return true;
        },
        [&](std::int64_t turn) {
            // A first step that ran too far ahead would have replaced it.
            seen.push_back(buffers[static_cast<std::size_t>(turn % ahead)]);
            return true;
        });
    EXPECT_TRUE(isDone);
    ASSERT_EQ(seen.size(), static_cast<std::size_t>(turns));
    for (std::int64_t turn = 0; turn < turns; ++turn) {
        EXPECT_EQ(seen[static_cast<std::size_t>(turn)], turn);
    }
}

TEST(DoInStep, NoTurnsAndOneTurnAreDone) {
    int steps = 0;
    const auto step = [&](std::int64_t) {
        ++steps;
        return true;
    };
    EXPECT_TRUE(doInStep(0, 1, step, step));
    EXPECT_EQ(steps, 0);
    EXPECT_TRUE(doInStep(1, 1, step, step));
    EXPECT_EQ(steps, 2);
}

TEST(DoInStep, AStepThatFailsEndsBoth) {
    const auto succeed = [](std::int64_t) { return true; };
    const auto failAt = [](std::int64_t failing) {
        return [failing](std::int64_t turn) { return turn != failing; };
    };
    for (const std::int64_t turns : {1, 10}) {
        EXPECT_FALSE(doInStep(turns, 2, failAt(turns - 1), succeed));
        EXPECT_FALSE(doInStep(turns, 2, succeed, failAt(turns - 1)));
        EXPECT_FALSE(doInStep(turns, 2, failAt(0), failAt(0)));
    }
    std::int64_t lastSecond = -1;
    EXPECT_FALSE(doInStep(10, 2, failAt(5), [&](std::int64_t turn) {
        lastSecond = turn;
        return true;
    }));
    EXPECT_LT(lastSecond, 5);
}

TEST(DoInStep, WhatAStepThrowsIsThrown) {
    const auto succeed = [](std::int64_t) { return true; };
    const auto throwAt = [](std::int64_t failing) {
        return [failing](std::int64_t turn) {
            return turn == failing ? throw std::runtime_error("step") : true;
        };
    };
    for (const std::int64_t turns : {1, 10}) {
        EXPECT_THROW(doInStep(turns, 2, throwAt(turns - 1), succeed), std::runtime_error);
        EXPECT_THROW(doInStep(turns, 2, succeed, throwAt(turns - 1)), std::runtime_error);
    }
}

}  // namespace

#include "imaging/base/parallel.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <mutex>
#include <stdexcept>
#include <string>
#include <thread>
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

TEST(Parallel, NestedCallsDoEveryIndexOnce) {
    constexpr std::int64_t outer = 7;
    constexpr std::int64_t inner = 11;
    for (const unsigned threads : {1U, 2U, 16U}) {
        std::vector<std::atomic<int>> done(outer * inner);
        forEachInParallel(
            outer,
            [&](std::int64_t row) {
                forEachInParallel(
                    inner,
                    [&](std::int64_t column) { ++done[static_cast<std::size_t>(row * inner + column)]; },
                    threads);
            },
            threads);
        EXPECT_TRUE(std::all_of(done.begin(), done.end(), [](int times) { return times == 1; }));
    }
}

/// Counts the threads that are in it at the same time.
class Crowd {
public:
    class Member {
    public:
        explicit Member(Crowd& crowd) : m_crowd(crowd) {
            const int present = ++m_crowd.m_present;
            int most = m_crowd.m_most;
            while (most < present && !m_crowd.m_most.compare_exchange_weak(most, present)) {
            }
        }
        ~Member() { --m_crowd.m_present; }
        Member(const Member&) = delete;
        Member& operator=(const Member&) = delete;

    private:
        Crowd& m_crowd;
    };

    int most() const { return m_most; }

private:
    std::atomic<int> m_present = 0;
    std::atomic<int> m_most = 0;
};

void spendTime() {
    for (std::atomic<int> step = 0; step < 5000; ++step) {
    }
}

TEST(Parallel, NestedCallsTakeNoMoreThreadsThanThereAreCores) {
    Crowd crowd;
    forEachInParallel(
        16,
        [&](std::int64_t) {
            forEachInParallel(16, [&](std::int64_t) {
                const Crowd::Member member(crowd);
                spendTime();
            });
        },
        16);
    EXPECT_LE(crowd.most(), static_cast<int>(coreCount()));
}

TEST(Parallel, ACallTakesNoMoreThreadsThanItMay) {
    for (const unsigned threads : {1U, 2U, 3U}) {
        Crowd crowd;
        forEachInParallel(
            50,
            [&](std::int64_t) {
                const Crowd::Member member(crowd);
                // The nested call may use all cores, but takes no further turn of the outer one.
                forEachInParallel(4, [](std::int64_t) { spendTime(); });
            },
            threads);
        EXPECT_LE(crowd.most(), static_cast<int>(threads));
    }
}

/// A thread that took another turn of the outer call while it waits for the nested one would lock twice.
TEST(Parallel, ALockMayBeHeldOverANestedCall) {
    std::mutex mutex;
    int done = 0;
    forEachInParallel(
        200,
        [&](std::int64_t) {
            const std::lock_guard lock(mutex);
            std::atomic<int> inner = 0;
            forEachInParallel(8, [&](std::int64_t) {
                spendTime();
                ++inner;
            });
            done += inner;
        },
        8);
    EXPECT_EQ(done, 1600);
}

TEST(Parallel, ThreadsOfTheCallersOwnMayCallAtOnce) {
    std::atomic<int> done = 0;
    {
        std::vector<std::jthread> callers;
        for (int caller = 0; caller < 8; ++caller) {
            callers.emplace_back([&] { forEachInParallel(100, [&](std::int64_t) { ++done; }); });
        }
    }
    EXPECT_EQ(done, 800);
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
            // A first step that runs too far ahead would overwrite it.
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

TEST(DoInStep, TheFailureIsTheOneThatAlternationWouldMeetFirst) {
    const auto failAt = [](std::int64_t failing, const char* name) {
        return [=](std::int64_t turn) { return turn == failing ? throw std::runtime_error(name) : true; };
    };
    const auto messageOf = [](const auto& call) {
        try {
            call();
            return std::string("none");
        } catch (const std::runtime_error& error) {
            return std::string(error.what());
        }
    };
    // The first step runs ahead and may fail earlier in time, but the turn of the second one comes first.
    for (int times = 0; times < 50; ++times) {
        EXPECT_EQ(messageOf([&] { doInStep(20, 4, failAt(5, "first"), failAt(4, "second")); }), "second");
        EXPECT_EQ(messageOf([&] { doInStep(20, 4, failAt(5, "first"), failAt(5, "second")); }), "first");
        bool isDone = true;
        EXPECT_EQ(messageOf([&] {
                      isDone =
                          doInStep(20, 4, failAt(5, "first"), [](std::int64_t turn) { return turn < 4; });
                  }),
                  "none");
        EXPECT_FALSE(isDone);
    }
}

TEST(DoInStep, TheStepsOfATurnMayWorkInParallelThemselves) {
    std::atomic<int> done = 0;
    const auto step = [&](std::int64_t) {
        forEachInParallel(5, [&](std::int64_t) { ++done; });
        return true;
    };
    forEachInParallel(6, [&](std::int64_t) { EXPECT_TRUE(doInStep(10, 3, step, step)); });
    EXPECT_EQ(done, 600);
}

TEST(DoInStep, TheFirstStepStaysWithinTheBuffers) {
    std::atomic<std::int64_t> begun = 0;
    std::atomic<std::int64_t> ended = 0;
    std::atomic<std::int64_t> farthest = 0;
    EXPECT_TRUE(doInStep(
        300, 3,
        [&](std::int64_t) {
            const std::int64_t ahead = ++begun - ended;
            farthest = std::max<std::int64_t>(farthest, ahead);
            return true;
        },
        [&](std::int64_t) {
            spendTime();
            ++ended;
            return true;
        }));
    EXPECT_LE(farthest, 3);
}

/// Which step of `doInThreeSteps` fails at a turn.
struct FailingSteps {
    std::int64_t read = -1;
    std::int64_t work = -1;
    std::int64_t write = -1;
};

/// The name of the step that is reported; "none" if there is no failure.
std::string reportedStep(std::int64_t turns, const FailingSteps& failing) {
    const auto failAt = [](std::int64_t failingTurn, const char* name) {
        return [=](std::int64_t turn) {
            if (turn == failingTurn) {
                throw std::runtime_error(name);
            }
        };
    };
    try {
        doInThreeSteps(turns, 4, failAt(failing.read, "read"), failAt(failing.work, "work"),
                       failAt(failing.write, "write"));
    } catch (const std::runtime_error& error) {
        return error.what();
    }
    return "none";
}

TEST(DoInThreeSteps, DataGoesThroughInOrderInTheBuffers) {
    constexpr std::int64_t turns = 500;
    constexpr std::int64_t ahead = 3;
    std::array<std::int64_t, ahead> buffers{};
    const auto bufferOf = [&](std::int64_t turn) -> std::int64_t& {
        return buffers[static_cast<std::size_t>(turn % ahead)];
    };
    std::vector<std::int64_t> seen;
    doInThreeSteps(
        turns, ahead, [&](std::int64_t turn) { bufferOf(turn) = turn; },
        [&](std::int64_t turn) { bufferOf(turn) = bufferOf(turn) * 2 + 1; },
        [&](std::int64_t turn) { seen.push_back(bufferOf(turn)); });
    ASSERT_EQ(seen.size(), static_cast<std::size_t>(turns));
    for (std::int64_t turn = 0; turn < turns; ++turn) {
        EXPECT_EQ(seen[static_cast<std::size_t>(turn)], turn * 2 + 1);
    }
}

TEST(DoInThreeSteps, StaysWithinTheBuffers) {
    std::atomic<std::int64_t> begun = 0;
    std::atomic<std::int64_t> ended = 0;
    std::atomic<std::int64_t> farthest = 0;
    doInThreeSteps(
        300, 3, [&](std::int64_t) { farthest = std::max<std::int64_t>(farthest, ++begun - ended); },
        [](std::int64_t) { spendTime(); }, [&](std::int64_t) { ++ended; });
    EXPECT_LE(farthest, 3);
    EXPECT_EQ(ended, 300);
}

TEST(DoInThreeSteps, NoTurnsAndOneTurnAreDone) {
    EXPECT_EQ(reportedStep(0, {.read = 0, .work = 0, .write = 0}), "none");
    EXPECT_EQ(reportedStep(1, {}), "none");
    EXPECT_EQ(reportedStep(1, {.read = 0}), "read");
    EXPECT_EQ(reportedStep(1, {.work = 0}), "work");
    EXPECT_EQ(reportedStep(1, {.write = 0}), "write");
}

TEST(DoInThreeSteps, TheFailureIsTheOneThatAlternationWouldMeetFirst) {
    for (int times = 0; times < 50; ++times) {
        EXPECT_EQ(reportedStep(20, {.read = 5, .work = 5, .write = 5}), "read");
        EXPECT_EQ(reportedStep(20, {.read = 5, .work = 4, .write = 5}), "work");
        EXPECT_EQ(reportedStep(20, {.read = 5, .work = 5, .write = 4}), "write");
        EXPECT_EQ(reportedStep(20, {.work = 7, .write = 6}), "write");
        EXPECT_EQ(reportedStep(20, {.work = 7, .write = 7}), "work");
        EXPECT_EQ(reportedStep(20, {.read = 19}), "read");
    }
}

TEST(DoInThreeSteps, NothingIsWrittenFromTheFailingTurnOn) {
    for (const bool failsInWork : {false, true}) {
        std::int64_t written = 0;
        const auto fail = [](std::int64_t turn) {
            if (turn == 5) {
                throw std::runtime_error("fails");
            }
        };
        const auto succeed = [](std::int64_t) {};
        EXPECT_THROW(doInThreeSteps(20, 4, failsInWork ? std::function<void(std::int64_t)>(succeed) : fail,
                                    failsInWork ? std::function<void(std::int64_t)>(fail) : succeed,
                                    [&](std::int64_t) { ++written; }),
                     std::runtime_error);
        EXPECT_EQ(written, 5);
    }
}

TEST(DoInThreeSteps, MayBeNested) {
    std::atomic<int> done = 0;
    const auto nothing = [](std::int64_t) {};
    forEachInParallel(4, [&](std::int64_t) {
        doInThreeSteps(
            6, 3, [&](std::int64_t) { forEachInParallel(3, [&](std::int64_t) { ++done; }); },
            [&](std::int64_t) {
                doInThreeSteps(
                    5, 2, nothing, [&](std::int64_t) { ++done; }, nothing);
            },
            nothing);
    });
    EXPECT_EQ(done, 4 * 6 * (3 + 5));
}

}  // namespace

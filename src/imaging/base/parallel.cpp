#include "imaging/base/parallel.h"

#include "imaging/base/tasks.h"

#include <algorithm>
#include <atomic>
#include <exception>
#include <mutex>
#include <thread>
#include <utility>
#include <vector>

namespace quarlin {

unsigned coreCount() { return std::max(1U, std::thread::hardware_concurrency()); }

void forEachInParallel(std::int64_t count, const std::function<void(std::int64_t)>& work, unsigned threads) {
    std::atomic<std::int64_t> next = 0;
    // Orders nothing but itself: an order between the calls would hide their races from the thread sanitizer.
    const auto takeIndex = [&] { return next.fetch_add(1, std::memory_order_relaxed); };
    std::mutex failureMutex;
    std::int64_t failedIndex = count;
    std::exception_ptr failure;

    tasks::runSideBySide(std::min<std::int64_t>(threads, count), [&] {
        for (std::int64_t index = takeIndex(); index < count; index = takeIndex()) {
            try {
                work(index);
            } catch (...) {
                const std::lock_guard lock(failureMutex);
                if (index < failedIndex) {
                    failedIndex = index;
                    failure = std::current_exception();
                }
            }
        }
    });
    if (failure) {
        std::rethrow_exception(failure);
    }
}

namespace {

/// A function that is called for one turn after the other, until it fails.
class Step {
public:
    explicit Step(const std::function<bool(std::int64_t)>& work) : m_work(work) {}

    /// Makes the call for `turn` unless an earlier one failed. Returns whether all so far succeeded.
    bool call(std::int64_t turn) {
        if (m_isComplete) {
            try {
                m_isComplete = m_work(turn);
            } catch (...) {
                m_isComplete = false;
                m_failure = std::current_exception();
            }
        }
        return m_isComplete;
    }

    /// Whether all calls succeeded. Throws what one of them threw.
    bool isComplete() const {
        if (m_failure) {
            std::rethrow_exception(m_failure);
        }
        return m_isComplete;
    }

private:
    const std::function<bool(std::int64_t)>& m_work;
    bool m_isComplete = true;
    std::exception_ptr m_failure;
};

}  // namespace

bool doInStep(std::int64_t count, std::int64_t ahead, const std::function<bool(std::int64_t)>& first,
              const std::function<bool(std::int64_t)>& second) {
    if (count < 2) {
        return count < 1 || (first(0) && second(0));
    }
    Step firstStep(first);
    Step secondStep(second);
    // Only saves work: turns that begin after the second step has failed are not needed.
    std::atomic<bool> isOver = false;
    tasks::runInStep(
        ahead,
        [&](std::int64_t turn) {
            return turn < count && !isOver.load(std::memory_order_relaxed) && firstStep.call(turn);
        },
        [&](std::int64_t turn) {
            if (!secondStep.call(turn)) {
                isOver.store(true, std::memory_order_relaxed);
            }
        });
    // The second step is called only for turns before the one where the first step failed, so its failure
    // comes first.
    return secondStep.isComplete() && firstStep.isComplete();
}

void doInThreeSteps(std::int64_t count, std::int64_t ahead, const std::function<void(std::int64_t)>& read,
                    const std::function<void(std::int64_t)>& work,
                    const std::function<void(std::int64_t)>& write) {
    // The failures of `work`, which `write` reports in the order of the turns.
    std::vector<std::exception_ptr> failures(static_cast<std::size_t>(ahead));
    const auto failureOf = [&](std::int64_t turn) -> std::exception_ptr& {
        return failures[static_cast<std::size_t>(turn % ahead)];
    };
    const std::function<bool(std::int64_t)> readNext = [&](std::int64_t turn) {
        read(turn);
        return true;
    };
    const std::function<bool(std::int64_t)> writeNext = [&](std::int64_t turn) {
        if (const std::exception_ptr failure = std::exchange(failureOf(turn), {})) {
            std::rethrow_exception(failure);
        }
        write(turn);
        return true;
    };
    Step readStep(readNext);
    Step writeStep(writeNext);
    // Only saves work: turns that begin after one has failed are not needed.
    std::atomic<bool> isOver = false;
    const auto end = [&] { isOver.store(true, std::memory_order_relaxed); };
    tasks::runInThreeSteps(
        ahead,
        [&](std::int64_t turn) {
            return turn < count && !isOver.load(std::memory_order_relaxed) && readStep.call(turn);
        },
        [&](std::int64_t turn) {
            try {
                work(turn);
            } catch (...) {
                failureOf(turn) = std::current_exception();
                end();
            }
        },
        [&](std::int64_t turn) {
            if (!writeStep.call(turn)) {
                end();
            }
        });
    // The write step is called only for turns before the one where the read step failed, so its failure comes
    // first.
    writeStep.isComplete();
    readStep.isComplete();
}

}  // namespace quarlin

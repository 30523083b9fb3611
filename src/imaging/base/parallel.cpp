#include "imaging/base/parallel.h"

#include <algorithm>
#include <atomic>
#include <condition_variable>
#include <exception>
#include <mutex>
#include <thread>
#include <utility>
#include <vector>

namespace quarlin {

unsigned coreCount() { return std::max(1U, std::thread::hardware_concurrency()); }

void forEachInParallel(std::int64_t count, const std::function<void(std::int64_t)>& work, unsigned threads) {
    std::atomic<std::int64_t> next = 0;
    std::mutex failureMutex;
    std::int64_t failedIndex = count;
    std::exception_ptr failure;

    const auto takeTurns = [&] {
        for (std::int64_t index = next++; index < count; index = next++) {
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
    };

    {
        std::vector<std::jthread> others;
        for (std::int64_t other = 1; other < std::min<std::int64_t>(threads, count); ++other) {
            others.emplace_back(takeTurns);
        }
        takeTurns();
    }
    if (failure) {
        std::rethrow_exception(failure);
    }
}

namespace {

/// How far the two steps are.
class Progress {
public:
    explicit Progress(std::int64_t ahead) : m_ahead(ahead) {}

    /// Wait until the step of `turn` may begin; false when it never may.
    bool awaitFirst(std::int64_t turn) {
        return await([&] { return turn < m_secondDone + m_ahead; });
    }
    bool awaitSecond(std::int64_t turn) {
        return await([&] { return turn < m_firstDone; });
    }

    void finishFirst() {
        change([&] { ++m_firstDone; });
    }
    void finishSecond() {
        change([&] { ++m_secondDone; });
    }
    void stop(std::exception_ptr failure = nullptr) {
        change([&] {
            m_stopped = true;
            m_failure = m_failure ? m_failure : std::move(failure);
        });
    }

    /// Once both steps have ended: whether they did all turns. Throws what one of them threw.
    bool isComplete() const {
        if (m_failure) {
            std::rethrow_exception(m_failure);
        }
        return !m_stopped;
    }

private:
    template <typename Condition>
    bool await(const Condition& condition) {
        std::unique_lock lock(m_mutex);
        m_changed.wait(lock, [&] { return m_stopped || condition(); });
        return !m_stopped;
    }
    template <typename Change>
    void change(const Change& apply) {
        {
            const std::lock_guard lock(m_mutex);
            apply();
        }
        m_changed.notify_all();
    }

    std::mutex m_mutex;
    std::condition_variable m_changed;
    std::int64_t m_ahead;
    std::int64_t m_firstDone = 0;
    std::int64_t m_secondDone = 0;
    bool m_stopped = false;
    std::exception_ptr m_failure;
};

}  // namespace

bool doInStep(std::int64_t count, std::int64_t ahead, const std::function<bool(std::int64_t)>& first,
              const std::function<bool(std::int64_t)>& second) {
    if (count < 2 || coreCount() == 1) {
        for (std::int64_t turn = 0; turn < count; ++turn) {
            if (!first(turn) || !second(turn)) {
                return false;
            }
        }
        return true;
    }
    Progress progress(ahead);
    const auto doTurns = [&](const auto& step, const auto& await, const auto& finish) {
        try {
            for (std::int64_t turn = 0; turn < count && await(turn); ++turn) {
                if (!step(turn)) {
                    progress.stop();
                    return;
                }
                finish();
            }
        } catch (...) {
            progress.stop(std::current_exception());
        }
    };
    {
        const std::jthread other([&] {
            doTurns(
                first, [&](std::int64_t turn) { return progress.awaitFirst(turn); },
                [&] { progress.finishFirst(); });
        });
        doTurns(
            second, [&](std::int64_t turn) { return progress.awaitSecond(turn); },
            [&] { progress.finishSecond(); });
    }
    return progress.isComplete();
}

RowRange RowStrips::operator[](std::int64_t strip) const {
    const std::int64_t first = strip * m_rowsPerStrip;
    return {first, std::min(m_rowsPerStrip, m_height - first)};
}

}  // namespace quarlin

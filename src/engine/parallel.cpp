#include "parallel.h"

#include <algorithm>
#include <atomic>
#include <exception>
#include <mutex>
#include <thread>
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

RowRange RowBands::operator[](std::int64_t band) const {
    const std::int64_t first = band * m_rowsPerBand;
    return {first, std::min(m_rowsPerBand, m_height - first)};
}

}  // namespace quarlin

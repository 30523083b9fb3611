#pragma once

#include <cstdint>
#include <functional>

namespace quarlin {

/// The number of cores that this process may use, at least 1. So many threads work for one caller at most,
/// however its parallel calls are nested.
unsigned coreCount();

/// Calls `work(0)` to `work(count - 1)`, each once, at most `threads` at a time, and returns when all are
/// done. Any thread may do any of them and in any order, so the results must not depend on it, and none may
/// wait for another one. When calls throw, the other calls are made all the same; then the exception of the
/// lowest index is thrown.
void forEachInParallel(std::int64_t count, const std::function<void(std::int64_t)>& work,
                       unsigned threads = coreCount());

/// Calls `first(turn)`, then `second(turn)`, for the turns 0 to `count - 1`. Each function is called in the
/// order of the turns, and `first` runs ahead of `second` at the same time, by less than `ahead` turns:
/// `ahead` buffers, used in turn, carry the data from one to the other. A function that returns false or
/// throws ends the work.
///
/// Returns whether all turns were done. Returns and throws what plain alternation would: `first(0)`,
/// `second(0)`, `first(1)` and so on; but `first` may have been called for later turns.
bool doInStep(std::int64_t count, std::int64_t ahead, const std::function<bool(std::int64_t)>& first,
              const std::function<bool(std::int64_t)>& second);

/// Calls `read(turn)`, `work(turn)` and `write(turn)`, one after the other, for the turns 0 to `count - 1`.
/// `read` and `write` are each called in the order of the turns, `work` in any order and for several turns at
/// once; less than `ahead` turns are begun before the first of them has ended, so that `ahead` buffers, used
/// in turn, are enough. A function that throws ends the work.
///
/// Throws what the functions would throw if they were called for one turn after the other; but they may have
/// been called for later turns.
void doInThreeSteps(std::int64_t count, std::int64_t ahead, const std::function<void(std::int64_t)>& read,
                    const std::function<void(std::int64_t)>& work,
                    const std::function<void(std::int64_t)>& write);

}  // namespace quarlin

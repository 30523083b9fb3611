#pragma once

#include <cstdint>
#include <functional>

/// The only place that uses oneTBB. Its workers serve every call, nested ones included, so that at most as
/// many threads work for one caller as the machine has cores. The functions given must not throw.
namespace quarlin::tasks {

/// Calls `work` `times` times, side by side as far as threads are free, and returns when all calls have
/// returned. No call may wait for another one: they may also be made one after the other.
void runSideBySide(std::int64_t times, const std::function<void()>& work);

/// Calls `first(turn)` and `second(turn)` for the turns 0, 1, 2 and so on. Each function is called in the
/// order of the turns and by one thread at a time; `second(turn)` follows `first(turn)`. The two run side by
/// side as far as threads are free, with at most `ahead` turns begun and not ended. When `first` returns
/// false, that turn is the last and has no `second`; returns when those of the earlier turns have returned.
void runInStep(std::int64_t ahead, const std::function<bool(std::int64_t)>& first,
               const std::function<void(std::int64_t)>& second);

/// The same with `middle(turn)` between the two. It is called for several turns at the same time and in any
/// order.
void runInThreeSteps(std::int64_t ahead, const std::function<bool(std::int64_t)>& first,
                     const std::function<void(std::int64_t)>& middle,
                     const std::function<void(std::int64_t)>& last);

}  // namespace quarlin::tasks

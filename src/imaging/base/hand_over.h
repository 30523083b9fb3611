#pragma once

#ifdef QUARLIN_THREAD_SANITIZER
#include <sanitizer/tsan_interface.h>
#endif

namespace quarlin {

/// A point where threads leave results to each other. The task scheduler orders them, but the thread
/// sanitizer cannot see that, because the scheduler's library is not compiled with it. These marks state the
/// order; they do not make one, and without the sanitizer they do nothing.
class HandOver {
public:
    HandOver() = default;
    HandOver(const HandOver&) = delete;
    HandOver& operator=(const HandOver&) = delete;

    /// Other threads may read what this one has done so far, after their `take()`.
    void give() {
#ifdef QUARLIN_THREAD_SANITIZER
        __tsan_release(this);
#endif
    }

    /// From here on this thread may read what others did before their `give()`.
    void take() {
#ifdef QUARLIN_THREAD_SANITIZER
        __tsan_acquire(this);
#endif
    }
};

}  // namespace quarlin

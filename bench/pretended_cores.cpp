// Preloaded into a program, this lets it believe that the machine has PRETENDED_CORES cores: how work is
// divided for many cores can then be measured on a machine with few.

#include <sched.h>

#include <cstdlib>

extern "C" int sched_getaffinity(pid_t, std::size_t size, cpu_set_t* set) noexcept {
    const char* const wanted = std::getenv("PRETENDED_CORES");
    CPU_ZERO_S(size, set);
    for (int core = 0; core < (wanted != nullptr ? std::atoi(wanted) : 1); ++core) {
        CPU_SET_S(static_cast<std::size_t>(core), size, set);
    }
    return 0;
}

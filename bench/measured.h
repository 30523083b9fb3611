#pragma once

#include <benchmark/benchmark.h>

#include <cstddef>
#include <cstdint>
#include <string>

namespace quarlin::bench {

/// Registers a benchmark that measures elapsed time and the processor time of all threads.
template <typename Work>
int measure(const std::string& name, const Work& work) {
    benchmark::RegisterBenchmark(name.c_str(), work)
        ->Unit(benchmark::kMillisecond)
        ->MeasureProcessCPUTime()
        ->UseRealTime();
    return 0;
}

/// Reports that each iteration processes `bytes` bytes.
inline void countBytes(benchmark::State& state, std::size_t bytes) {
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) * static_cast<std::int64_t>(bytes));
}

}  // namespace quarlin::bench

#pragma once

#include <cstdint>
#include <vector>

namespace quarlin {

/// How one output sample is made from a row or column of input samples: the samples from `first` on, each
/// times its weight. The weights are multiples of 2^-24 and add up to exactly 1.
struct FilterTaps {
    std::int64_t first = 0;
    std::vector<double> weights;

    /// The first input sample after those that are used.
    std::int64_t end() const { return first + static_cast<std::int64_t>(weights.size()); }
};

/// The taps of a three-lobed Lanczos filter that scales `inputSize` samples to `outputSize`. To scale down,
/// the filter is widened to the distance of the output samples. Taps beyond the edge are dropped, and the
/// others are scaled up to a sum of 1. Neither `first` nor `end()` decreases from one output sample to the
/// next; the last sample uses the last input sample.
std::vector<FilterTaps> lanczosTaps(std::int64_t inputSize, std::int64_t outputSize);

}  // namespace quarlin

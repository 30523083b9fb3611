#include "imaging/pixels/lanczos_taps.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace quarlin {

namespace {

constexpr double lobes = 3.0;
constexpr double weightUnit = 1.0 / (1 << 24);

/// sinc(x) windowed by sinc(x / 3).
double lanczos(double x) {
    if (x == 0.0) {
        return 1.0;
    }
    if (std::abs(x) >= lobes) {
        return 0.0;
    }
    const double angle = std::numbers::pi * x;
    return lobes * std::sin(angle) * std::sin(angle / lobes) / (angle * angle);
}

/// Rounds the weights to whole units that add up to exactly 1. The rounding error goes to the largest weight,
/// half to each where there are two, so that a symmetrical filter stays symmetrical.
void quantize(std::vector<double>& weights) {
    double sum = 0.0;
    for (const double weight : weights) {
        sum += weight;
    }
    double total = 0.0;
    for (double& weight : weights) {
        weight = std::round(weight / sum / weightUnit);
        total += weight;
    }
    const double rest = 1.0 / weightUnit - total;
    const auto largest = std::max_element(weights.begin(), weights.end());
    const auto lastLargest = std::max_element(weights.rbegin(), weights.rend());
    const double half = std::trunc(rest / 2.0);
    *largest += half;
    *lastLargest += rest - half;
    for (double& weight : weights) {
        weight *= weightUnit;
    }
}

}  // namespace

std::vector<FilterTaps> lanczosTaps(std::int64_t inputSize, std::int64_t outputSize) {
    const double scale = static_cast<double>(inputSize) / static_cast<double>(outputSize);
    const double stretch = std::max(1.0, scale);
    const double reach = lobes * stretch;
    std::vector<FilterTaps> all(static_cast<std::size_t>(outputSize));
    // The second half mirrors the first, to the bit.
    for (std::int64_t index = 0; index < (outputSize + 1) / 2; ++index) {
        // Sample i covers i...i + 1, with its center at i + 0.5, in the input and the output.
        const double center =
            static_cast<double>((2 * index + 1) * inputSize) / (2.0 * static_cast<double>(outputSize));
        const auto first =
            std::max<std::int64_t>(0, static_cast<std::int64_t>(std::ceil(center - reach - 0.5)));
        const auto last =
            std::min(inputSize - 1, static_cast<std::int64_t>(std::floor(center + reach - 0.5)));
        FilterTaps& taps = all[static_cast<std::size_t>(index)];
        taps.first = first;
        for (std::int64_t sample = first; sample <= last; ++sample) {
            taps.weights.push_back(lanczos((static_cast<double>(sample) + 0.5 - center) / stretch));
        }
        quantize(taps.weights);

        const std::int64_t mirrored = outputSize - 1 - index;
        if (mirrored != index) {
            all[static_cast<std::size_t>(mirrored)] = {inputSize - 1 - last,
                                                       {taps.weights.rbegin(), taps.weights.rend()}};
        }
    }
    return all;
}

}  // namespace quarlin

#include "imaging/pixels/resample_rows.h"

#include "imaging/pixels/pixel_image.h"

#include <algorithm>
#include <cmath>

// Compiles this file once for every instruction set.
#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "imaging/pixels/resample_rows.cpp"
#include <hwy/foreach_target.h>
#include <hwy/highway.h>

#ifndef QUARLIN_RESAMPLE_UNIT
#define QUARLIN_RESAMPLE_UNIT
namespace quarlin {

/// Results are multiples of this.
inline constexpr double sampleUnit = 1.0 / (1 << 14);

}  // namespace quarlin
#endif

HWY_BEFORE_NAMESPACE();
namespace quarlin::HWY_NAMESPACE {

namespace hn = hwy::HWY_NAMESPACE;

/// The values of one pixel, or fewer where a vector cannot hold four.
using Values = hn::CappedTag<double, bytesPerPixel>;
using Value = hn::Vec<Values>;

HWY_INLINE HWY_ATTR void widen(const std::uint8_t* input, std::span<double> wide) {
    const hn::ScalableTag<double> doubles;
    const hn::Rebind<std::int32_t, decltype(doubles)> integers;
    const hn::Rebind<std::uint8_t, decltype(doubles)> bytes;
    std::size_t index = 0;
    for (; index + hn::Lanes(doubles) <= wide.size(); index += hn::Lanes(doubles)) {
        hn::StoreU(hn::PromoteTo(doubles, hn::PromoteTo(integers, hn::LoadU(bytes, input + index))), doubles,
                   wide.data() + index);
    }
    std::copy(input + index, input + wide.size(), wide.begin() + static_cast<std::ptrdiff_t>(index));
}

HWY_INLINE HWY_ATTR Value weighted(double weight, const double* sample) {
    return hn::Mul(hn::Set(Values(), weight), hn::LoadU(Values(), sample));
}

/// Keeps four sums, because an addition to the same sum waits for the one before.
HWY_INLINE HWY_ATTR Value sumOf(std::span<const double> weights, const double* sample) {
    const Values values;
    Value first = hn::Zero(values);
    Value second = hn::Zero(values);
    Value third = hn::Zero(values);
    Value fourth = hn::Zero(values);
    std::size_t tap = 0;
    for (; tap + 4 <= weights.size(); tap += 4) {
        first = hn::Add(first, weighted(weights[tap], sample));
        second = hn::Add(second, weighted(weights[tap + 1], sample + bytesPerPixel));
        third = hn::Add(third, weighted(weights[tap + 2], sample + 2 * bytesPerPixel));
        fourth = hn::Add(fourth, weighted(weights[tap + 3], sample + 3 * bytesPerPixel));
        sample += 4 * bytesPerPixel;
    }
    for (; tap < weights.size(); ++tap) {
        first = hn::Add(first, weighted(weights[tap], sample));
        sample += bytesPerPixel;
    }
    return hn::Add(hn::Add(first, second), hn::Add(third, fourth));
}

HWY_ATTR void filterPixelRow(const std::uint8_t* input, std::span<const FilterTaps> taps,
                             std::span<double> wide, float* output) {
    const Values values;
    const hn::Rebind<float, Values> floats;
    const Value unit = hn::Set(values, sampleUnit);
    const Value perUnit = hn::Set(values, 1.0 / sampleUnit);
    const Value half = hn::Set(values, 0.5);
    const auto lanes = static_cast<std::int64_t>(hn::Lanes(values));
    widen(input, wide);
    for (const FilterTaps& tap : taps) {
        const double* sample = wide.data() + tap.first * bytesPerPixel;
        for (std::int64_t channel = 0; channel < bytesPerPixel; channel += lanes) {
            const Value units = hn::Mul(sumOf(tap.weights, sample + channel), perUnit);
            const Value rounded = hn::Mul(hn::Floor(hn::Add(units, half)), unit);
            hn::StoreU(hn::DemoteTo(floats, rounded), floats, output);
            output += lanes;
        }
    }
}

}  // namespace quarlin::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#if HWY_ONCE

namespace quarlin {

HWY_EXPORT(filterPixelRow);

void filterPixelRow(const std::uint8_t* input, std::span<const FilterTaps> taps, std::span<double> wide,
                    float* output) {
    HWY_DYNAMIC_DISPATCH(filterPixelRow)(input, taps, wide, output);
}

void plain::filterPixelRow(const std::uint8_t* input, std::span<const FilterTaps> taps,
                           std::span<double> wide, float* output) {
    std::copy(input, input + wide.size(), wide.begin());
    for (const FilterTaps& tap : taps) {
        for (std::int64_t channel = 0; channel < bytesPerPixel; ++channel) {
            const double* sample = wide.data() + tap.first * bytesPerPixel + channel;
            double sum = 0.0;
            for (const double weight : tap.weights) {
                sum += weight * *sample;
                sample += bytesPerPixel;
            }
            *output++ = static_cast<float>(std::floor(sum / sampleUnit + 0.5) * sampleUnit);
        }
    }
}

}  // namespace quarlin

#endif

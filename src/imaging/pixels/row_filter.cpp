#include "imaging/pixels/row_filter.h"

#include "imaging/pixels/column_filter.h"
#include "imaging/pixels/pixel_image.h"

#include <algorithm>
#include <cmath>
#include <cstring>

// Compiles this file once for every instruction set.
#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "imaging/pixels/row_filter.cpp"
#include <hwy/foreach_target.h>
#include <hwy/highway.h>

#ifndef QUARLIN_ROW_FILTER_PIXEL
#define QUARLIN_ROW_FILTER_PIXEL
namespace quarlin {

/// Rounds the sums of one pixel to bytes.
inline void convertPixel(const double* sums, std::uint8_t* output) {
    const auto toByte = [](double sum, double largest) {
        return static_cast<std::uint8_t>(std::max(0.0, std::min(largest, std::floor(sum + 0.5))));
    };
    constexpr double opaque = 255.0;
    const std::uint8_t alpha = toByte(sums[3], opaque);
    const double held = sums[3] > opaque ? opaque / sums[3] : 1.0;
    output[0] = toByte(sums[0] * held, alpha);
    output[1] = toByte(sums[1] * held, alpha);
    output[2] = toByte(sums[2] * held, alpha);
    output[3] = alpha;
}

}  // namespace quarlin
#endif

HWY_BEFORE_NAMESPACE();
namespace quarlin::HWY_NAMESPACE {

#if HWY_TARGET != HWY_SCALAR

namespace hn = hwy::HWY_NAMESPACE;

/// At most eight numbers: `filteredRowPadding` is a multiple of four vectors.
using Doubles = hn::CappedTag<double, 8>;
using Integers = hn::Rebind<std::int32_t, Doubles>;

/// Four sums at a time, so that the weight is loaded once for all of them.
constexpr std::size_t vectorsPerBlock = 4;

HWY_INLINE HWY_ATTR hn::Vec<Doubles> weighted(hn::Vec<Doubles> weight, const std::int32_t* samples) {
    return hn::Mul(weight, hn::PromoteTo(Doubles(), hn::LoadU(Integers(), samples)));
}

/// Rounds the sums of one block to pixels.
HWY_INLINE HWY_ATTR void convertBlock(const double* sums, std::uint8_t* output) {
    const Doubles doubles;
    const std::size_t lanes = hn::Lanes(doubles);
    const auto half = hn::Set(doubles, 0.5);
    const auto opaque = hn::Set(doubles, 255.0);
    HWY_ALIGN std::int32_t rounded[vectorsPerBlock * hn::MaxLanes(Doubles())];
    auto largest = hn::Zero(doubles);
    for (std::size_t index = 0; index < vectorsPerBlock * lanes; index += lanes) {
        const auto sum = hn::Load(doubles, sums + index);
        largest = hn::Max(largest, sum);
        hn::StoreU(hn::DemoteTo(Integers(), hn::Floor(hn::Add(sum, half))), Integers(), rounded + index);
    }
    if (!hn::AllTrue(doubles, hn::Le(largest, opaque))) {
        for (std::size_t index = 0; index < vectorsPerBlock * lanes; index += bytesPerPixel) {
            convertPixel(sums + index, output + index);
        }
        return;
    }
    const hn::CappedTag<std::int32_t, vectorsPerBlock * hn::MaxLanes(Doubles())> integers;
    const hn::Rebind<std::uint8_t, decltype(integers)> bytes;
    for (std::size_t index = 0; index < vectorsPerBlock * lanes; index += hn::Lanes(integers)) {
        const auto pixels = hn::Load(integers, rounded + index);
        const auto atMostAlpha = hn::Min(pixels, hn::Broadcast<3>(pixels));
        hn::StoreU(hn::DemoteTo(bytes, atMostAlpha), bytes, output + index);
    }
}

#endif

HWY_ATTR void filterRows(std::span<const std::int32_t* const> rows, std::span<const double> weights,
                         std::span<std::uint8_t> output) {
#if HWY_TARGET == HWY_SCALAR
    plain::filterRows(rows, weights, output);
#else
    const Doubles doubles;
    const std::size_t lanes = hn::Lanes(doubles);
    for (std::size_t begin = 0; begin < output.size(); begin += vectorsPerBlock * lanes) {
        auto first = hn::Zero(doubles);
        auto second = hn::Zero(doubles);
        auto third = hn::Zero(doubles);
        auto fourth = hn::Zero(doubles);
        for (std::size_t tap = 0; tap < weights.size(); ++tap) {
            const auto weight = hn::Set(doubles, weights[tap] * filteredUnit);
            const std::int32_t* samples = rows[tap] + begin;
            first = hn::Add(first, weighted(weight, samples));
            second = hn::Add(second, weighted(weight, samples + lanes));
            third = hn::Add(third, weighted(weight, samples + 2 * lanes));
            fourth = hn::Add(fourth, weighted(weight, samples + 3 * lanes));
        }
        HWY_ALIGN double sums[vectorsPerBlock * hn::MaxLanes(Doubles())];
        hn::Store(first, doubles, sums);
        hn::Store(second, doubles, sums + lanes);
        hn::Store(third, doubles, sums + 2 * lanes);
        hn::Store(fourth, doubles, sums + 3 * lanes);
        std::uint8_t pixels[vectorsPerBlock * hn::MaxLanes(Doubles())];
        convertBlock(sums, pixels);
        std::memcpy(output.data() + begin, pixels, std::min(output.size() - begin, vectorsPerBlock * lanes));
    }
#endif
}

}  // namespace quarlin::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#if HWY_ONCE

namespace quarlin {

HWY_EXPORT(filterRows);

void filterRows(std::span<const std::int32_t* const> rows, std::span<const double> weights,
                std::span<std::uint8_t> output) {
    HWY_DYNAMIC_DISPATCH(filterRows)(rows, weights, output);
}

void plain::filterRows(std::span<const std::int32_t* const> rows, std::span<const double> weights,
                       std::span<std::uint8_t> output) {
    for (std::size_t pixel = 0; pixel < output.size(); pixel += bytesPerPixel) {
        double sums[bytesPerPixel] = {};
        for (std::size_t tap = 0; tap < weights.size(); ++tap) {
            for (std::size_t channel = 0; channel < bytesPerPixel; ++channel) {
                sums[channel] += weights[tap] * (rows[tap][pixel + channel] * filteredUnit);
            }
        }
        convertPixel(sums, output.data() + pixel);
    }
}

}  // namespace quarlin

#endif

#include "imaging/pixels/column_filter.h"

#include "imaging/pixels/pixel_image.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

// Compiles this file once for every instruction set.
#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "imaging/pixels/column_filter.cpp"
#include <hwy/foreach_target.h>
#include <hwy/highway.h>

#ifndef QUARLIN_COLUMN_FILTER_RANGES
#define QUARLIN_COLUMN_FILTER_RANGES
namespace quarlin {

/// The number of taps of one `PackedWeights`.
inline constexpr std::size_t tapsPerGroup = 4;

/// With so many taps, the sum of `lower * 255` still fits into 32 bits.
inline constexpr std::size_t mostPackedTaps = 4096;

}  // namespace quarlin
#endif

HWY_BEFORE_NAMESPACE();
namespace quarlin::HWY_NAMESPACE {

#if HWY_TARGET != HWY_SCALAR

namespace hn = hwy::HWY_NAMESPACE;

/// A vector works on several rows at once: each block of 128 bits belongs to another row.
constexpr std::size_t blockBytes = 16;
constexpr std::size_t rowsPerVector = HWY_HAVE_SCALABLE ? 1 : HWY_MIN(4, HWY_MAX_BYTES / blockBytes);

template <std::size_t rows>
using Bytes = hn::CappedTag<std::uint8_t, rows * blockBytes>;
template <std::size_t rows>
using Sums = hn::Repartition<std::int32_t, Bytes<rows>>;
template <std::size_t rows>
using Products = hn::Repartition<std::int16_t, Bytes<rows>>;

/// Four pixels of each row.
template <std::size_t rows>
HWY_INLINE HWY_ATTR hn::Vec<Bytes<rows>> loadRows(const std::uint8_t* input, std::int64_t bytesPerRow) {
    if constexpr (rows == 1) {
        return hn::LoadU(Bytes<1>(), input);
    } else {
        constexpr std::size_t half = rows / 2;
        return hn::Combine(Bytes<rows>(),
                           loadRows<half>(input + static_cast<std::int64_t>(half) * bytesPerRow, bytesPerRow),
                           loadRows<half>(input, bytesPerRow));
    }
}

/// One pixel of each row.
template <std::size_t rows>
HWY_INLINE HWY_ATTR void storeRows(hn::Vec<Sums<rows>> samples, std::int32_t* const* output,
                                   std::int64_t offset) {
    if constexpr (rows == 1) {
        hn::StoreU(samples, Sums<1>(), *output + offset);
    } else {
        constexpr std::size_t half = rows / 2;
        storeRows<half>(hn::LowerHalf(Sums<half>(), samples), output, offset);
        storeRows<half>(hn::UpperHalf(Sums<half>(), samples), output + half, offset);
    }
}

/// Adds the products of two taps with one half of their weights. `sum` and `rest` together hold the sum.
template <std::size_t rows>
HWY_INLINE HWY_ATTR void addProducts(hn::Vec<Products<rows>> pixels, std::int32_t weights,
                                     hn::Vec<Sums<rows>>& sum, hn::Vec<Sums<rows>>& rest) {
    const auto factors = hn::BitCast(Products<rows>(), hn::Set(Sums<rows>(), weights));
    sum = hn::ReorderWidenMulAccumulate(Sums<rows>(), pixels, factors, sum, rest);
}

/// Rounds `4096 * upper + lower` units of 2^-24 to multiples of 2^-14.
template <std::size_t rows>
HWY_INLINE HWY_ATTR hn::Vec<Sums<rows>> rounded(hn::Vec<Sums<rows>> upper, hn::Vec<Sums<rows>> lower) {
    const auto half = hn::Set(Sums<rows>(), 1 << 9);
    return hn::Add(hn::ShiftLeft<2>(upper), hn::ShiftRight<10>(hn::Add(lower, half)));
}

/// Filters `rows` rows.
template <std::size_t rows>
HWY_ATTR void filterRows(const std::uint8_t* input, std::int64_t bytesPerRow,
                         std::span<const ColumnFilter::PackedTaps> taps, std::int32_t* const* output) {
    // From R, G, B, A of two pixels to pairs of 16 bits: both reds, both greens and so on.
    constexpr std::uint8_t none = 0x80;
    alignas(blockBytes) static constexpr std::uint8_t firstPair[] = {0, none, 4, none, 1, none, 5, none,
                                                                     2, none, 6, none, 3, none, 7, none};
    alignas(blockBytes) static constexpr std::uint8_t secondPair[] = {8,  none, 12, none, 9,  none, 13, none,
                                                                      10, none, 14, none, 11, none, 15, none};
    const Bytes<rows> bytes;
    const Products<rows> products;
    const Sums<rows> sums;
    const auto first = hn::LoadDup128(bytes, firstPair);
    const auto second = hn::LoadDup128(bytes, secondPair);
    std::int64_t offset = 0;
    for (const ColumnFilter::PackedTaps& tap : taps) {
        const std::uint8_t* pixel = input + tap.first * bytesPerPixel;
        auto upper = hn::Zero(sums);
        auto upperRest = upper;
        auto lower = upper;
        auto lowerRest = upper;
        for (const ColumnFilter::PackedWeights& weights : tap.weights) {
            const auto pixels = loadRows<rows>(pixel, bytesPerRow);
            const auto pair = hn::BitCast(products, hn::TableLookupBytesOr0(pixels, first));
            addProducts<rows>(pair, weights.upper[0], upper, upperRest);
            addProducts<rows>(pair, weights.lower[0], lower, lowerRest);
            const auto nextPair = hn::BitCast(products, hn::TableLookupBytesOr0(pixels, second));
            addProducts<rows>(nextPair, weights.upper[1], upper, upperRest);
            addProducts<rows>(nextPair, weights.lower[1], lower, lowerRest);
            pixel += tapsPerGroup * bytesPerPixel;
        }
        storeRows<rows>(rounded<rows>(hn::RearrangeToOddPlusEven(upper, upperRest),
                                      hn::RearrangeToOddPlusEven(lower, lowerRest)),
                        output, offset);
        offset += bytesPerPixel;
    }
}

#endif

HWY_ATTR void filterColumns(const ColumnFilter& filter, const std::uint8_t* input, std::int64_t bytesPerRow,
                            std::span<const ColumnFilter::PackedTaps> taps,
                            std::span<std::int32_t* const> output) {
#if HWY_TARGET == HWY_SCALAR
    static_cast<void>(taps);
    filter.filterPlainly(input, bytesPerRow, output);
#else
    static_cast<void>(filter);
    const auto advance = [&](std::size_t rows) {
        input += static_cast<std::int64_t>(rows) * bytesPerRow;
        output = output.subspan(rows);
    };
    while (output.size() >= rowsPerVector) {
        filterRows<rowsPerVector>(input, bytesPerRow, taps, output.data());
        advance(rowsPerVector);
    }
    while (!output.empty()) {
        filterRows<1>(input, bytesPerRow, taps, output.data());
        advance(1);
    }
#endif
}

}  // namespace quarlin::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#if HWY_ONCE

namespace quarlin {

HWY_EXPORT(filterColumns);

namespace {

/// The halves of two 16-bit numbers next to each other, the first in the lower bits.
std::int32_t pair(std::int64_t first, std::int64_t second) {
    const auto bits = [](std::int64_t value) {
        return static_cast<std::uint32_t>(static_cast<std::uint16_t>(value));
    };
    return static_cast<std::int32_t>(bits(first) | bits(second) << 16);
}

ColumnFilter::PackedWeights packed(std::span<const double> weights) {
    std::array<std::int64_t, tapsPerGroup> upper{};
    std::array<std::int64_t, tapsPerGroup> lower{};
    for (std::size_t tap = 0; tap < weights.size(); ++tap) {
        const auto units = static_cast<std::int64_t>(weights[tap] * (1 << 24));
        upper[tap] = (units + (1 << 11)) >> 12;
        lower[tap] = units - upper[tap] * (1 << 12);
    }
    return {{pair(upper[0], upper[1]), pair(upper[2], upper[3])},
            {pair(lower[0], lower[1]), pair(lower[2], lower[3])}};
}

}  // namespace

ColumnFilter::ColumnFilter(std::vector<FilterTaps> taps) : m_taps(std::move(taps)) {
    const auto groupsOf = [](const FilterTaps& each) {
        return (each.weights.size() + tapsPerGroup - 1) / tapsPerGroup;
    };
    std::size_t groups = 0;
    for (const FilterTaps& each : m_taps) {
        if (each.weights.size() > mostPackedTaps) {
            return;
        }
        groups += groupsOf(each);
    }
    m_weights.reserve(groups);
    m_packed.reserve(m_taps.size());
    for (const FilterTaps& each : m_taps) {
        const std::span<const double> weights = each.weights;
        for (std::size_t tap = 0; tap < weights.size(); tap += tapsPerGroup) {
            m_weights.push_back(packed(weights.subspan(tap, std::min(tapsPerGroup, weights.size() - tap))));
        }
        m_packed.push_back({each.first, std::span(m_weights).last(groupsOf(each))});
    }
}

void ColumnFilter::filter(const std::uint8_t* input, std::int64_t bytesPerRow,
                          std::span<std::int32_t* const> output) const {
    if (m_packed.empty()) {
        filterPlainly(input, bytesPerRow, output);
    } else {
        HWY_DYNAMIC_DISPATCH(filterColumns)(*this, input, bytesPerRow, m_packed, output);
    }
}

void ColumnFilter::filterPlainly(const std::uint8_t* input, std::int64_t bytesPerRow,
                                 std::span<std::int32_t* const> output) const {
    for (std::int32_t* samples : output) {
        for (const FilterTaps& each : m_taps) {
            for (std::int64_t channel = 0; channel < bytesPerPixel; ++channel) {
                const std::uint8_t* sample = input + each.first * bytesPerPixel + channel;
                double sum = 0.0;
                for (const double weight : each.weights) {
                    sum += weight * *sample;
                    sample += bytesPerPixel;
                }
                *samples++ = static_cast<std::int32_t>(std::floor(sum / filteredUnit + 0.5));
            }
        }
        input += bytesPerRow;
    }
}

}  // namespace quarlin

#endif

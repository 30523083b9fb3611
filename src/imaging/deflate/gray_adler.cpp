#include "imaging/deflate/gray_deflate.h"

#include <algorithm>
#include <array>

// Compiles this file once for every instruction set.
#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "imaging/deflate/gray_adler.cpp"
#include <hwy/foreach_target.h>
#include <hwy/highway.h>

#ifndef QUARLIN_RESIDUAL_SUMS
#define QUARLIN_RESIDUAL_SUMS

namespace quarlin {

/// The sum of residuals, and the sum of each times its place.
struct ResidualSums {
    std::uint64_t values = 0;
    std::uint64_t weighted = 0;
};

}  // namespace quarlin

#endif

HWY_BEFORE_NAMESPACE();
namespace quarlin::HWY_NAMESPACE {

namespace hn = hwy::HWY_NAMESPACE;

/// Sums as many of `count` residuals as whole vectors hold, and returns how many these are.
///
/// The place of a residual is that of its vector plus its lane. The sums of the lanes, each in 16 bits, give
/// the second part. The first part needs the sum of each vector times its place: adding up, after each
/// vector, the sum of all before it counts every vector once for each that follows.
HWY_ATTR std::int64_t addVectors(const std::uint8_t* values, std::int64_t count, ResidualSums& sums) {
    const hn::ScalableTag<std::uint8_t> bytes;
    const hn::Repartition<std::uint64_t, decltype(bytes)> wide;
    const hn::ScalableTag<std::uint16_t> words;
    const hn::Rebind<std::uint8_t, decltype(words)> halfBytes;
    const auto lanes = static_cast<std::int64_t>(hn::Lanes(bytes));
    if (lanes == 1) {
        return 0;
    }
    const std::int64_t vectors = count / lanes;

    // Each lane of 16 bits has room for 257 residuals.
    constexpr std::int64_t mostPerLane = 256;
    auto total = hn::Zero(wide);
    auto totals = hn::Zero(wide);
    for (std::int64_t first = 0; first < vectors; first += mostPerLane) {
        auto lower = hn::Zero(words);
        auto upper = hn::Zero(words);
        const std::int64_t end = std::min(first + mostPerLane, vectors);
        for (std::int64_t vector = first; vector < end; ++vector) {
            const std::uint8_t* place = values + vector * lanes;
            totals = hn::Add(totals, total);
            total = hn::Add(total, hn::SumsOf8(hn::LoadU(bytes, place)));
            lower = hn::Add(lower, hn::PromoteTo(words, hn::LoadU(halfBytes, place)));
            upper = hn::Add(upper, hn::PromoteTo(words, hn::LoadU(halfBytes, place + hn::Lanes(words))));
        }
        std::array<std::uint16_t, HWY_MAX_BYTES> laneSums{};
        hn::StoreU(lower, words, laneSums.data());
        hn::StoreU(upper, words, laneSums.data() + hn::Lanes(words));
        for (std::size_t lane = 0; lane < static_cast<std::size_t>(lanes); ++lane) {
            sums.weighted += laneSums[lane] * lane;
        }
    }
    const std::uint64_t sum = hn::GetLane(hn::SumOfLanes(wide, total));
    const std::uint64_t sumBefore = hn::GetLane(hn::SumOfLanes(wide, totals));
    sums.values += sum;
    // A vector is counted once for each after it. The number of those before it is the rest of all others.
    const auto uses = static_cast<std::uint64_t>(vectors > 0 ? vectors - 1 : 0);
    sums.weighted += static_cast<std::uint64_t>(lanes) * (uses * sum - sumBefore);
    return vectors * lanes;
}

}  // namespace quarlin::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#if HWY_ONCE

namespace quarlin {

HWY_EXPORT(addVectors);

namespace {

ResidualSums sumsOf(const std::uint8_t* values, std::int64_t count) {
    ResidualSums sums;
    for (std::int64_t place = HWY_DYNAMIC_DISPATCH(addVectors)(values, count, sums); place < count; ++place) {
        sums.values += values[place];
        sums.weighted += static_cast<std::uint64_t>(place) * values[place];
    }
    return sums;
}

}  // namespace

// Adler-32 (RFC 1950) is two sums modulo 65521: `low` is 1 plus all bytes, `high` is the sum of `low` after
// each byte. So in a row of n bytes, byte i is counted n - i times in `high`. A row holds the filter's
// number, then for the pixel at x its residual three times, from byte 1 + 4x on, and an alpha residual, which
// is 0 for all but the first pixel.
std::uint32_t grayAdler(const GrayResiduals& residuals) {
    constexpr std::uint64_t modulus = 65521;
    const auto size = static_cast<std::uint64_t>(residuals.width * bytesPerPixel + 1);
    std::uint64_t low = 1;
    std::uint64_t high = 0;
    for (std::size_t row = 0; row < residuals.filters.size(); ++row) {
        const ResidualSums sums =
            sumsOf(residuals.values + static_cast<std::int64_t>(row) * residuals.width, residuals.width);
        const std::uint64_t filter = residuals.filters[row];
        const std::uint64_t alpha = residuals.firstAlphas[row];
        high +=
            size * (low + filter) + (3 * size - 6) * sums.values - 12 * sums.weighted + (size - 4) * alpha;
        low += filter + 3 * sums.values + alpha;
        high %= modulus;
        low %= modulus;
    }
    return static_cast<std::uint32_t>(high << 16U | low);
}

}  // namespace quarlin

#endif

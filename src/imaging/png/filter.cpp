#include "imaging/png/filter.h"

#include <algorithm>
#include <array>
#include <cstdlib>

#ifndef QUARLIN_FILTER_COSTS
#define QUARLIN_FILTER_COSTS

namespace quarlin {

/// For each filter the sum of the residuals' magnitudes, read as signed bytes.
struct FilterCosts {
    std::array<std::uint64_t, 5> sums{};

    std::uint64_t& of(PngFilter filter) { return sums[static_cast<std::size_t>(filter)]; }
};

}  // namespace quarlin

#endif

// Compiles this file once for every instruction set.
#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "imaging/png/filter.cpp"
#include <hwy/foreach_target.h>
#include <hwy/highway.h>

HWY_BEFORE_NAMESPACE();
namespace quarlin::HWY_NAMESPACE {

namespace hn = hwy::HWY_NAMESPACE;

using Bytes = hn::ScalableTag<std::uint8_t>;
using Byte = hn::Vec<Bytes>;

HWY_INLINE HWY_ATTR Byte absoluteDifference(Byte left, Byte right) {
    return hn::Or(hn::SaturatedSub(left, right), hn::SaturatedSub(right, left));
}

/// Half the sum, rounded down. `AverageRound` rounds up.
HWY_INLINE HWY_ATTR Byte average(Byte left, Byte up) {
    return hn::Sub(hn::AverageRound(left, up), hn::And(hn::Xor(left, up), hn::Set(Bytes(), std::uint8_t{1})));
}

/// The Paeth predictor: left, up or up-left, whichever is nearest to left + up - upLeft. The distance from
/// up-left can need nine bits: it is the sum of the other two distances where these have the same sign. It
/// may saturate there: it is still no smaller than either.
HWY_INLINE HWY_ATTR Byte paeth(Byte left, Byte up, Byte upLeft) {
    const Byte fromLeft = absoluteDifference(up, upLeft);
    const Byte fromUp = absoluteDifference(left, upLeft);
    const auto sameWay = hn::Xor(hn::VecFromMask(Bytes(), hn::Eq(hn::Max(up, upLeft), up)),
                                 hn::VecFromMask(Bytes(), hn::Eq(hn::Min(left, upLeft), left)));
    const Byte fromUpLeft = hn::IfThenElse(hn::MaskFromVec(sameWay), hn::SaturatedAdd(fromLeft, fromUp),
                                           absoluteDifference(fromLeft, fromUp));
    const Byte vertical = hn::IfThenElse(hn::Eq(hn::Min(fromUp, fromUpLeft), fromUp), up, upLeft);
    const Byte least = hn::Min(fromUp, fromUpLeft);
    return hn::IfThenElse(hn::Eq(hn::Min(fromLeft, least), fromLeft), left, vertical);
}

/// Calls `visit(index, isNew)` for vectors that cover the row from byte `pixelSize` on. The last one may
/// begin before the one before it ends: `isNew` marks the bytes that were not visited before. Returns false,
/// without any call, for a row that is shorter than a vector.
template <typename Visit>
HWY_INLINE HWY_ATTR bool forEachVector(std::size_t pixelSize, std::size_t size, const Visit& visit) {
    const Bytes bytes;
    const std::size_t lanes = hn::Lanes(bytes);
    if (size < pixelSize + lanes) {
        return false;
    }
    std::size_t index = pixelSize;
    const auto all = hn::FirstN(bytes, lanes);
    for (; index + lanes <= size; index += lanes) {
        visit(index, all);
    }
    if (index < size) {
        const std::size_t last = size - lanes;
        visit(last, hn::Not(hn::FirstN(bytes, index - last)));
    }
    return true;
}

/// Filters the row from byte `pixelSize` on, unless it is too short.
template <typename Predict>
HWY_INLINE HWY_ATTR bool filterVectors(std::size_t pixelSize, std::span<const std::uint8_t> row,
                                       const std::uint8_t* above, std::uint8_t* residuals,
                                       const Predict& predict) {
    const Bytes bytes;
    return forEachVector(pixelSize, row.size(), [&](std::size_t index, auto) HWY_ATTR {
        const Byte left = hn::LoadU(bytes, row.data() + index - pixelSize);
        const Byte up = hn::LoadU(bytes, above + index);
        const Byte upLeft = hn::LoadU(bytes, above + index - pixelSize);
        hn::StoreU(hn::Sub(hn::LoadU(bytes, row.data() + index), predict(left, up, upLeft)), bytes,
                   residuals + index);
    });
}

HWY_ATTR bool filterRow(PngFilter filter, std::size_t pixelSize, std::span<const std::uint8_t> row,
                        const std::uint8_t* above, std::uint8_t* residuals) {
    switch (filter) {
        case PngFilter::none:
            return false;
        case PngFilter::sub:
            return filterVectors(pixelSize, row, above, residuals,
                                 [](Byte left, Byte, Byte) HWY_ATTR { return left; });
        case PngFilter::up:
            return filterVectors(pixelSize, row, above, residuals,
                                 [](Byte, Byte up, Byte) HWY_ATTR { return up; });
        case PngFilter::average:
            return filterVectors(pixelSize, row, above, residuals,
                                 [](Byte left, Byte up, Byte) HWY_ATTR { return average(left, up); });
        case PngFilter::paeth:
            return filterVectors(pixelSize, row, above, residuals,
                                 [](Byte left, Byte up, Byte upLeft)
                                     HWY_ATTR { return paeth(left, up, upLeft); });
    }
    return false;
}

/// Adds the costs of the row from byte `pixelSize` on, unless it is too short.
HWY_ATTR bool addCosts(std::size_t pixelSize, std::span<const std::uint8_t> row, const std::uint8_t* above,
                       FilterCosts& costs) {
    const Bytes bytes;
    const hn::Repartition<std::uint64_t, Bytes> sums;
    auto sub = hn::Zero(sums);
    auto up = hn::Zero(sums);
    auto average = hn::Zero(sums);
    auto paeth = hn::Zero(sums);
    const bool done = forEachVector(pixelSize, row.size(), [&](std::size_t index, auto isNew) HWY_ATTR {
        const Byte value = hn::LoadU(bytes, row.data() + index);
        const Byte leftOf = hn::LoadU(bytes, row.data() + index - pixelSize);
        const Byte above0 = hn::LoadU(bytes, above + index);
        const Byte aboveLeft = hn::LoadU(bytes, above + index - pixelSize);
        const auto magnitudes = [&](Byte predicted) HWY_ATTR {
            const Byte residual = hn::Sub(value, predicted);
            const Byte magnitude = hn::Min(residual, hn::Sub(hn::Zero(bytes), residual));
            return hn::SumsOf8(hn::IfThenElseZero(isNew, magnitude));
        };
        sub = hn::Add(sub, magnitudes(leftOf));
        up = hn::Add(up, magnitudes(above0));
        average = hn::Add(average, magnitudes(HWY_NAMESPACE::average(leftOf, above0)));
        paeth = hn::Add(paeth, magnitudes(HWY_NAMESPACE::paeth(leftOf, above0, aboveLeft)));
    });
    const auto total = [&](auto sum) HWY_ATTR { return hn::GetLane(hn::SumOfLanes(sums, sum)); };
    costs.of(PngFilter::sub) += total(sub);
    costs.of(PngFilter::up) += total(up);
    costs.of(PngFilter::average) += total(average);
    costs.of(PngFilter::paeth) += total(paeth);
    return done;
}

}  // namespace quarlin::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#if HWY_ONCE

namespace quarlin {

namespace {

/// The filters to choose from, the preferred ones first.
constexpr std::array choices{PngFilter::paeth, PngFilter::up, PngFilter::sub, PngFilter::average};

unsigned paeth(int left, int up, int upLeft) {
    const int estimate = left + up - upLeft;
    const int fromLeft = std::abs(estimate - left);
    const int fromUp = std::abs(estimate - up);
    const int fromUpLeft = std::abs(estimate - upLeft);
    if (fromLeft <= fromUp && fromLeft <= fromUpLeft) {
        return static_cast<unsigned>(left);
    }
    return static_cast<unsigned>(fromUp <= fromUpLeft ? up : upLeft);
}

unsigned prediction(PngFilter filter, std::uint8_t left, std::uint8_t up, std::uint8_t upLeft) {
    switch (filter) {
        case PngFilter::none:
            return 0;
        case PngFilter::sub:
            return left;
        case PngFilter::up:
            return up;
        case PngFilter::average:
            return (static_cast<unsigned>(left) + up) / 2U;
        case PngFilter::paeth:
            return paeth(left, up, upLeft);
    }
    return 0;
}

std::uint8_t residual(PngFilter filter, std::size_t pixelSize, std::span<const std::uint8_t> row,
                      const std::uint8_t* above, std::size_t index) {
    // The first pixel has no neighbor to the left.
    const bool isFirst = index < pixelSize;
    const std::uint8_t left = isFirst ? std::uint8_t{0} : row[index - pixelSize];
    const std::uint8_t upLeft = isFirst ? std::uint8_t{0} : above[index - pixelSize];
    return static_cast<std::uint8_t>(row[index] - prediction(filter, left, above[index], upLeft));
}

/// Filters the bytes `first` to `end` - 1 of a row.
void filterBytes(PngFilter filter, std::size_t pixelSize, std::span<const std::uint8_t> row,
                 const std::uint8_t* above, std::uint8_t* residuals, std::size_t first, std::size_t end) {
    for (std::size_t index = first; index < end; ++index) {
        residuals[index] = residual(filter, pixelSize, row, above, index);
    }
}

/// Adds the costs of the bytes `first` to `end` - 1 of a row.
void addByteCosts(std::size_t pixelSize, std::span<const std::uint8_t> row, const std::uint8_t* above,
                  std::size_t first, std::size_t end, FilterCosts& costs) {
    for (const PngFilter filter : choices) {
        for (std::size_t index = first; index < end; ++index) {
            const auto value = static_cast<std::int8_t>(residual(filter, pixelSize, row, above, index));
            costs.of(filter) += static_cast<std::uint64_t>(std::abs(value));
        }
    }
}

}  // namespace

HWY_EXPORT(filterRow);
HWY_EXPORT(addCosts);

void applyPngFilter(PngFilter filter, std::size_t pixelSize, std::span<const std::uint8_t> row,
                    std::span<const std::uint8_t> above, std::span<std::uint8_t> residuals) {
    if (filter == PngFilter::none) {
        std::copy(row.begin(), row.end(), residuals.begin());
        return;
    }
    const bool done = HWY_DYNAMIC_DISPATCH(filterRow)(filter, pixelSize, row, above.data(), residuals.data());
    filterBytes(filter, pixelSize, row, above.data(), residuals.data(), 0, done ? pixelSize : row.size());
}

PngFilter choosePngFilter(std::size_t pixelSize, std::span<const std::uint8_t> row,
                          std::span<const std::uint8_t> above) {
    FilterCosts costs;
    const bool done = HWY_DYNAMIC_DISPATCH(addCosts)(pixelSize, row, above.data(), costs);
    addByteCosts(pixelSize, row, above.data(), 0, done ? pixelSize : row.size(), costs);
    return *std::min_element(choices.begin(), choices.end(), [&](PngFilter left, PngFilter right) {
        return costs.of(left) < costs.of(right);
    });
}

void plain::applyPngFilter(PngFilter filter, std::size_t pixelSize, std::span<const std::uint8_t> row,
                           std::span<const std::uint8_t> above, std::span<std::uint8_t> residuals) {
    filterBytes(filter, pixelSize, row, above.data(), residuals.data(), 0, row.size());
}

}  // namespace quarlin

#endif

#include "imaging/png/filter.h"

#include <algorithm>
#include <cstdlib>
#include <limits>

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

/// Filters as many whole vectors as the row holds from byte `pixelSize` on. Returns the first byte that is
/// left.
template <typename Predict>
HWY_INLINE HWY_ATTR std::size_t filterVectors(std::size_t pixelSize, std::span<const std::uint8_t> row,
                                              const std::uint8_t* above, std::uint8_t* residuals,
                                              const Predict& predict) {
    const Bytes bytes;
    const std::size_t lanes = hn::Lanes(bytes);
    std::size_t index = pixelSize;
    for (; index + lanes <= row.size(); index += lanes) {
        const Byte left = hn::LoadU(bytes, row.data() + index - pixelSize);
        const Byte up = hn::LoadU(bytes, above + index);
        const Byte upLeft = hn::LoadU(bytes, above + index - pixelSize);
        hn::StoreU(hn::Sub(hn::LoadU(bytes, row.data() + index), predict(left, up, upLeft)), bytes,
                   residuals + index);
    }
    return index;
}

HWY_ATTR std::size_t filterRow(PngFilter filter, std::size_t pixelSize, std::span<const std::uint8_t> row,
                               const std::uint8_t* above, std::uint8_t* residuals) {
    switch (filter) {
        case PngFilter::none:
            return 0;
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
    return 0;
}

}  // namespace quarlin::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#if HWY_ONCE

namespace quarlin {

namespace {

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

/// Filters the bytes `first` to `end` - 1 of a row.
void filterBytes(PngFilter filter, std::size_t pixelSize, std::span<const std::uint8_t> row,
                 const std::uint8_t* above, std::uint8_t* residuals, std::size_t first, std::size_t end) {
    for (std::size_t index = first; index < end; ++index) {
        // The first pixel has no neighbor to the left.
        const bool isFirst = index < pixelSize;
        const std::uint8_t left = isFirst ? std::uint8_t{0} : row[index - pixelSize];
        const std::uint8_t upLeft = isFirst ? std::uint8_t{0} : above[index - pixelSize];
        residuals[index] =
            static_cast<std::uint8_t>(row[index] - prediction(filter, left, above[index], upLeft));
    }
}

/// The sum of the residuals' magnitudes, read as signed bytes.
std::uint64_t cost(std::span<const std::uint8_t> residuals) {
    std::uint64_t sum = 0;
    for (const std::uint8_t value : residuals) {
        sum += value < 128 ? value : 256U - value;
    }
    return sum;
}

}  // namespace

HWY_EXPORT(filterRow);

void applyPngFilter(PngFilter filter, std::size_t pixelSize, std::span<const std::uint8_t> row,
                    std::span<const std::uint8_t> above, std::span<std::uint8_t> residuals) {
    if (filter == PngFilter::none) {
        std::copy(row.begin(), row.end(), residuals.begin());
        return;
    }
    const std::size_t done =
        HWY_DYNAMIC_DISPATCH(filterRow)(filter, pixelSize, row, above.data(), residuals.data());
    filterBytes(filter, pixelSize, row, above.data(), residuals.data(), 0, std::min(pixelSize, row.size()));
    filterBytes(filter, pixelSize, row, above.data(), residuals.data(), done, row.size());
}

PngFilter choosePngFilter(std::size_t pixelSize, std::span<const std::uint8_t> row,
                          std::span<const std::uint8_t> above, std::span<std::uint8_t> scratch) {
    PngFilter best = PngFilter::paeth;
    std::uint64_t smallest = std::numeric_limits<std::uint64_t>::max();
    for (const PngFilter filter : {PngFilter::paeth, PngFilter::up, PngFilter::sub, PngFilter::average}) {
        applyPngFilter(filter, pixelSize, row, above, scratch);
        if (const std::uint64_t sum = cost(scratch); sum < smallest) {
            smallest = sum;
            best = filter;
        }
    }
    return best;
}

void plain::applyPngFilter(PngFilter filter, std::size_t pixelSize, std::span<const std::uint8_t> row,
                           std::span<const std::uint8_t> above, std::span<std::uint8_t> residuals) {
    filterBytes(filter, pixelSize, row, above.data(), residuals.data(), 0, row.size());
}

}  // namespace quarlin

#endif

#include "imaging/png/unfilter.h"

#include "imaging/png/filter.h"

#include <cstdlib>
#include <cstring>
#include <type_traits>

// Compiles this file once for every instruction set.
#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "imaging/png/unfilter.cpp"
#include <hwy/foreach_target.h>
#include <hwy/highway.h>

HWY_BEFORE_NAMESPACE();
namespace quarlin::HWY_NAMESPACE {

#if HWY_TARGET == HWY_SCALAR

std::int64_t unfilterRows(std::size_t pixelSize, std::uint8_t* rows, std::size_t rowSize, std::int64_t,
                          const std::uint8_t* above) {
    return plain::unfilterPngRow(pixelSize, rows, rowSize, above) ? 1 : 0;
}

#else

namespace hn = hwy::HWY_NAMESPACE;

/// The channels of one pixel, 0...255. Of fewer than four, the others are not used.
using Channels = hn::CappedTag<std::int16_t, 4>;
using Pixel = hn::Vec<Channels>;

template <std::size_t pixelSize>
HWY_INLINE HWY_ATTR Pixel load(const std::uint8_t* samples) {
    // Three channels are read with the first of the next pixel.
    constexpr std::size_t readBytes = pixelSize == 3 ? 4 : pixelSize;
    std::uint32_t pixel = 0;
    std::memcpy(&pixel, samples, readBytes);
    const hn::Rebind<std::uint8_t, Channels> bytes;
    const hn::Repartition<std::uint32_t, decltype(bytes)> whole;
    return hn::PromoteTo(Channels(), hn::BitCast(bytes, hn::Set(whole, pixel)));
}

template <std::size_t pixelSize>
HWY_INLINE HWY_ATTR void store(Pixel channels, std::uint8_t* samples) {
    const hn::Rebind<std::uint8_t, Channels> bytes;
    const hn::Repartition<std::uint32_t, decltype(bytes)> whole;
    const std::uint32_t pixel = hn::GetLane(hn::BitCast(whole, hn::DemoteTo(bytes, channels)));
    std::memcpy(samples, &pixel, pixelSize);
}

/// The pixel with these residuals and neighbors.
template <PngFilter filter>
HWY_INLINE HWY_ATTR Pixel unfiltered(Pixel residual, Pixel left, Pixel up, Pixel upLeft) {
    const Pixel low = hn::Set(Channels(), 255);
    if constexpr (filter == PngFilter::sub) {
        return hn::And(hn::Add(residual, left), low);
    } else if constexpr (filter == PngFilter::average) {
        // residual + (left + up) / 2. What does not need `left` is added first, because `left` comes last.
        const Pixel known = hn::Add(up, hn::Add(residual, residual));
        return hn::And(hn::ShiftRight<1>(hn::Add(left, known)), low);
    } else {
        static_assert(filter == PngFilter::paeth);
        const Pixel acrossUp = hn::Sub(up, upLeft);
        const Pixel acrossLeft = hn::Sub(left, upLeft);
        const Pixel fromLeft = hn::Abs(acrossUp);
        const Pixel fromUp = hn::Abs(acrossLeft);
        const Pixel fromUpLeft = hn::Abs(hn::Add(acrossUp, acrossLeft));
        const Pixel nearest = hn::Min(hn::Min(fromLeft, fromUp), fromUpLeft);
        const Pixel vertical = hn::IfThenElse(hn::Eq(fromUp, nearest), up, upLeft);
        const Pixel predicted = hn::IfThenElse(hn::Eq(fromLeft, nearest), left, vertical);
        return hn::And(hn::Add(residual, predicted), low);
    }
}

template <PngFilter filter, std::size_t pixelSize>
HWY_ATTR void unfilterRow(std::uint8_t* row, std::size_t rowSize, const std::uint8_t* above) {
    Pixel left = hn::Zero(Channels());
    Pixel upLeft = left;
    for (std::size_t index = 0; index < rowSize; index += pixelSize) {
        const Pixel up = load<pixelSize>(above + index);
        left = unfiltered<filter>(load<pixelSize>(row + index), left, up, upLeft);
        upLeft = up;
        store<pixelSize>(left, row + index);
    }
}

/// Unfilters two rows at once: the pixels of `second` one behind those of `first`, which they depend on.
/// Within a row, each pixel has to wait for the one before it; two rows use that time for each other.
template <PngFilter firstFilter, PngFilter secondFilter, std::size_t pixelSize>
HWY_ATTR void unfilterTwoRows(std::uint8_t* first, std::uint8_t* second, std::size_t rowSize,
                              const std::uint8_t* above) {
    const Pixel zero = hn::Zero(Channels());
    Pixel upLeft = load<pixelSize>(above);
    Pixel left = unfiltered<firstFilter>(load<pixelSize>(first), zero, upLeft, zero);
    store<pixelSize>(left, first);
    Pixel secondLeft = zero;
    Pixel secondUpLeft = zero;
    const auto advanceSecond = [&](std::size_t index, Pixel up) HWY_ATTR {
        secondLeft = unfiltered<secondFilter>(load<pixelSize>(second + index), secondLeft, up, secondUpLeft);
        secondUpLeft = up;
        store<pixelSize>(secondLeft, second + index);
    };
    for (std::size_t index = pixelSize; index < rowSize; index += pixelSize) {
        const Pixel aboveSecond = left;
        const Pixel up = load<pixelSize>(above + index);
        left = unfiltered<firstFilter>(load<pixelSize>(first + index), left, up, upLeft);
        upLeft = up;
        store<pixelSize>(left, first + index);
        advanceSecond(index - pixelSize, aboveSecond);
    }
    advanceSecond(rowSize - pixelSize, left);
}

/// Calls `work` with the filter as a constant, if its pixels depend on the one to the left. Returns whether
/// they do.
template <typename Work>
HWY_INLINE bool withSerialFilter(std::uint8_t filter, const Work& work) {
    switch (static_cast<PngFilter>(filter)) {
        case PngFilter::none:
        case PngFilter::up:
            return false;
        case PngFilter::sub:
            work(std::integral_constant<PngFilter, PngFilter::sub>());
            return true;
        case PngFilter::average:
            work(std::integral_constant<PngFilter, PngFilter::average>());
            return true;
        case PngFilter::paeth:
            work(std::integral_constant<PngFilter, PngFilter::paeth>());
            return true;
    }
    return false;
}

template <std::size_t pixelSize>
HWY_ATTR std::int64_t unfilterRowsOf(std::uint8_t* rows, std::size_t rowSize, std::int64_t count,
                                     const std::uint8_t* above) {
    std::uint8_t* const second = rows + rowSize + 1;
    std::int64_t done = 0;
    withSerialFilter(rows[-1], [&](auto filter) {
        const bool both = count > 1 && withSerialFilter(second[-1], [&](auto secondFilter) {
                              unfilterTwoRows<filter, secondFilter, pixelSize>(rows, second, rowSize, above);
                          });
        if (!both) {
            unfilterRow<filter, pixelSize>(rows, rowSize, above);
        }
        done = both ? 2 : 1;
    });
    if (done == 0 && plain::unfilterPngRow(pixelSize, rows, rowSize, above)) {
        done = 1;
    }
    return done;
}

HWY_ATTR std::int64_t unfilterRows(std::size_t pixelSize, std::uint8_t* rows, std::size_t rowSize,
                                   std::int64_t count, const std::uint8_t* above) {
    switch (pixelSize) {
        case 1:
            return unfilterRowsOf<1>(rows, rowSize, count, above);
        case 2:
            return unfilterRowsOf<2>(rows, rowSize, count, above);
        case 3:
            return unfilterRowsOf<3>(rows, rowSize, count, above);
        default:
            return unfilterRowsOf<4>(rows, rowSize, count, above);
    }
}

#endif

}  // namespace quarlin::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#if HWY_ONCE

namespace quarlin {

HWY_EXPORT(unfilterRows);

std::int64_t unfilterPngRows(std::size_t pixelSize, std::uint8_t* rows, std::size_t rowSize,
                             std::int64_t count, const std::uint8_t* above) {
    return HWY_DYNAMIC_DISPATCH(unfilterRows)(pixelSize, rows, rowSize, count, above);
}

bool plain::unfilterPngRow(std::size_t pixelSize, std::uint8_t* row, std::size_t rowSize,
                           const std::uint8_t* above) {
    const auto addPrediction = [&](const auto& predict) {
        for (std::size_t index = 0; index < rowSize; ++index) {
            const bool isFirst = index < pixelSize;
            const int left = isFirst ? 0 : row[index - pixelSize];
            const int upLeft = isFirst ? 0 : above[index - pixelSize];
            row[index] = static_cast<std::uint8_t>(row[index] + predict(left, int{above[index]}, upLeft));
        }
        return true;
    };
    switch (static_cast<PngFilter>(row[-1])) {
        case PngFilter::none:
            return true;
        case PngFilter::sub:
            return addPrediction([](int left, int, int) { return left; });
        case PngFilter::up:
            return addPrediction([](int, int up, int) { return up; });
        case PngFilter::average:
            return addPrediction([](int left, int up, int) { return (left + up) / 2; });
        case PngFilter::paeth:
            return addPrediction([](int left, int up, int upLeft) {
                const int fromLeft = std::abs(up - upLeft);
                const int fromUp = std::abs(left - upLeft);
                const int fromUpLeft = std::abs(left + up - 2 * upLeft);
                if (fromLeft <= fromUp && fromLeft <= fromUpLeft) {
                    return left;
                }
                return fromUp <= fromUpLeft ? up : upLeft;
            });
    }
    return false;
}

}  // namespace quarlin

#endif

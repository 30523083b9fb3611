#include "png_filter.h"

#include <algorithm>
#include <cstdlib>
#include <limits>

namespace quarlin {

namespace {

std::uint8_t residual(unsigned sample, unsigned prediction) {
    return static_cast<std::uint8_t>(sample - prediction);
}

/// The Paeth predictor: of left, up and up-left the one nearest to left + up - upLeft.
unsigned paeth(int left, int up, int upLeft) {
    const int fromLeft = std::abs(up - upLeft);
    const int fromUp = std::abs(left - upLeft);
    const int fromUpLeft = std::abs(up - upLeft + left - upLeft);
    const int vertical = fromUp <= fromUpLeft ? up : upLeft;
    return static_cast<unsigned>(fromLeft <= fromUp && fromLeft <= fromUpLeft ? left : vertical);
}

/// Writes the residuals of one filter. The first pixel has no left neighbour and is treated apart, so that
/// the loop over the others has no branch.
template <std::size_t pixelSize, typename Predict>
void predictRow(std::span<const std::uint8_t> row, const std::uint8_t* above, std::uint8_t* output,
                Predict predict) {
    const std::uint8_t* const sample = row.data();
    const std::size_t size = row.size();
    for (std::size_t index = 0; index < std::min(pixelSize, size); ++index) {
        output[index] = residual(sample[index], predict(0, above[index], 0));
    }
    for (std::size_t index = pixelSize; index < size; ++index) {
        output[index] = residual(sample[index],
                                 predict(sample[index - pixelSize], above[index], above[index - pixelSize]));
    }
}

template <std::size_t pixelSize>
void apply(PngFilter filter, std::span<const std::uint8_t> row, const std::uint8_t* above,
           std::uint8_t* output) {
    switch (filter) {
        case PngFilter::none:
            std::copy(row.begin(), row.end(), output);
            break;
        case PngFilter::sub:
            predictRow<pixelSize>(row, above, output,
                                  [](int left, int, int) { return static_cast<unsigned>(left); });
            break;
        case PngFilter::up:
            predictRow<pixelSize>(row, above, output,
                                  [](int, int up, int) { return static_cast<unsigned>(up); });
            break;
        case PngFilter::average:
            predictRow<pixelSize>(row, above, output, [](int left, int up, int) {
                return static_cast<unsigned>(left + up) / 2U;
            });
            break;
        case PngFilter::paeth:
            predictRow<pixelSize>(row, above, output,
                                  [](int left, int up, int upLeft) { return paeth(left, up, upLeft); });
            break;
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

void applyPngFilter(PngFilter filter, std::size_t pixelSize, std::span<const std::uint8_t> row,
                    std::span<const std::uint8_t> above, std::span<std::uint8_t> residuals) {
    if (pixelSize == 1) {
        apply<1>(filter, row, above.data(), residuals.data());
    } else {
        apply<4>(filter, row, above.data(), residuals.data());
    }
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

}  // namespace quarlin

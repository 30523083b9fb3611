#include "png_filter.h"

#include <algorithm>
#include <cstdlib>
#include <limits>

namespace quarlin {

namespace {

constexpr std::size_t pixelSize = 4;

enum class Filter : std::uint8_t { none, sub, up, average, paeth };

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
template <typename Predict>
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

void applyFilter(Filter filter, std::span<const std::uint8_t> row, const std::uint8_t* above,
                 std::uint8_t* output) {
    switch (filter) {
        case Filter::none:
            std::copy(row.begin(), row.end(), output);
            break;
        case Filter::sub:
            predictRow(row, above, output, [](int left, int, int) { return static_cast<unsigned>(left); });
            break;
        case Filter::up:
            predictRow(row, above, output, [](int, int up, int) { return static_cast<unsigned>(up); });
            break;
        case Filter::average:
            predictRow(row, above, output,
                       [](int left, int up, int) { return static_cast<unsigned>(left + up) / 2U; });
            break;
        case Filter::paeth:
            predictRow(row, above, output,
                       [](int left, int up, int upLeft) { return paeth(left, up, upLeft); });
            break;
    }
}

/// The sum of the residuals' magnitudes, read as signed bytes: small where they compress well.
std::uint64_t cost(std::span<const std::uint8_t> residuals) {
    std::uint64_t sum = 0;
    for (const std::uint8_t value : residuals) {
        sum += value < 128 ? value : 256U - value;
    }
    return sum;
}

}  // namespace

void filterPngRow(std::span<const std::uint8_t> row, std::span<const std::uint8_t> above,
                  std::span<std::uint8_t> output, std::span<std::uint8_t> scratch) {
    if (above.empty()) {
        output[0] = static_cast<std::uint8_t>(Filter::sub);
        applyFilter(Filter::sub, row, row.data(), output.data() + 1);
        return;
    }
    std::uint64_t best = std::numeric_limits<std::uint64_t>::max();
    for (const Filter filter : {Filter::paeth, Filter::up, Filter::sub, Filter::average, Filter::none}) {
        scratch[0] = static_cast<std::uint8_t>(filter);
        applyFilter(filter, row, above.data(), scratch.data() + 1);
        if (const std::uint64_t sum = cost(scratch.subspan(1)); sum < best) {
            best = sum;
            std::copy(scratch.begin(), scratch.end(), output.begin());
        }
    }
}

}  // namespace quarlin

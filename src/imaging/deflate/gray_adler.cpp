#include "imaging/deflate/gray_deflate.h"

#include <algorithm>

namespace quarlin {

namespace {

/// The sum of a row's residuals, and the sum of each times its column.
struct RowSums {
    std::uint64_t values = 0;
    std::uint64_t weighted = 0;
};

RowSums sumsOf(const std::uint8_t* values, std::int64_t width) {
    RowSums sums;
    // Sums of short runs fit in 32 bits, so the compiler can add many values at once.
    constexpr std::int64_t run = 256;
    for (std::int64_t first = 0; first < width; first += run) {
        const auto count = static_cast<std::uint32_t>(std::min(run, width - first));
        std::uint32_t runValues = 0;
        std::uint32_t runWeighted = 0;
        for (std::uint32_t index = 0; index < count; ++index) {
            const std::uint32_t value = values[first + index];
            runValues += value;
            runWeighted += value * index;
        }
        sums.values += runValues;
        sums.weighted += runWeighted + static_cast<std::uint64_t>(first) * runValues;
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
        const RowSums sums =
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

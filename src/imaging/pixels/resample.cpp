#include "imaging/pixels/resample.h"

#include "imaging/base/parallel.h"
#include "imaging/base/row_strips.h"
#include "imaging/pixels/resample_rows.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace quarlin {

namespace {

constexpr double lobes = 3.0;
constexpr double weightUnit = 1.0 / (1 << 24);

/// sinc(x) windowed by sinc(x / 3).
double lanczos(double x) {
    if (x == 0.0) {
        return 1.0;
    }
    if (std::abs(x) >= lobes) {
        return 0.0;
    }
    const double angle = std::numbers::pi * x;
    return lobes * std::sin(angle) * std::sin(angle / lobes) / (angle * angle);
}

/// Rounds the weights to whole units that add up to exactly 1. The rounding error goes to the largest weight,
/// half to each where there are two, so that a symmetrical filter stays symmetrical.
void quantize(std::vector<double>& weights) {
    double sum = 0.0;
    for (const double weight : weights) {
        sum += weight;
    }
    double total = 0.0;
    for (double& weight : weights) {
        weight = std::round(weight / sum / weightUnit);
        total += weight;
    }
    const double rest = 1.0 / weightUnit - total;
    const auto largest = std::max_element(weights.begin(), weights.end());
    const auto lastLargest = std::max_element(weights.rbegin(), weights.rend());
    const double half = std::trunc(rest / 2.0);
    *largest += half;
    *lastLargest += rest - half;
    for (double& weight : weights) {
        weight *= weightUnit;
    }
}

/// Rounds a row of sums to pixels and keeps every color at or below its alpha. The filter overshoots next to
/// an edge. Where alpha is clamped to 255, the colors are scaled down with it; otherwise a cut-out would have
/// a bright rim.
void convertRow(std::span<const double> sums, std::uint8_t* output) {
    const auto toByte = [](double sum, double largest) {
        return static_cast<std::uint8_t>(std::max(0.0, std::min(largest, std::floor(sum + 0.5))));
    };
    for (std::size_t index = 0; index < sums.size(); index += 4) {
        constexpr double opaque = 255.0;
        const std::uint8_t alpha = toByte(sums[index + 3], opaque);
        const double held = sums[index + 3] > opaque ? opaque / sums[index + 3] : 1.0;
        output[index] = toByte(sums[index] * held, alpha);
        output[index + 1] = toByte(sums[index + 1] * held, alpha);
        output[index + 2] = toByte(sums[index + 2] * held, alpha);
        output[index + 3] = alpha;
    }
}

/// The horizontally filtered rows of an image. Keeps those that the next output rows need again.
class ColumnFilteredRows {
public:
    ColumnFilteredRows(const ImageView& source, std::span<const FilterTaps> columns, std::size_t capacity)
        : m_source(source),
          m_columns(columns),
          m_wide(static_cast<std::size_t>(source.bytesPerRow())),
          m_rowLength(columns.size() * bytesPerPixel),
          m_rows(capacity * m_rowLength),
          m_held(capacity, -1) {}

    /// Row `y`, valid until `capacity` more rows have been read.
    const float* row(std::int64_t y) {
        const std::size_t place = static_cast<std::size_t>(y) % m_held.size();
        float* row = m_rows.data() + place * m_rowLength;
        if (m_held[place] != y) {
            filterPixelRow(m_source.row(y), m_columns, m_wide, row);
            m_held[place] = y;
        }
        return row;
    }

private:
    ImageView m_source;
    std::span<const FilterTaps> m_columns;
    std::vector<double> m_wide;
    std::size_t m_rowLength;
    std::vector<float> m_rows;
    std::vector<std::int64_t> m_held;
};

}  // namespace

std::vector<FilterTaps> lanczosTaps(std::int64_t inputSize, std::int64_t outputSize) {
    const double scale = static_cast<double>(inputSize) / static_cast<double>(outputSize);
    const double stretch = std::max(1.0, scale);
    const double reach = lobes * stretch;
    std::vector<FilterTaps> all(static_cast<std::size_t>(outputSize));
    // The second half mirrors the first, to the bit.
    for (std::int64_t index = 0; index < (outputSize + 1) / 2; ++index) {
        // Sample i covers i...i + 1, with its center at i + 0.5, in the input and the output.
        const double center =
            static_cast<double>((2 * index + 1) * inputSize) / (2.0 * static_cast<double>(outputSize));
        const auto first =
            std::max<std::int64_t>(0, static_cast<std::int64_t>(std::ceil(center - reach - 0.5)));
        const auto last =
            std::min(inputSize - 1, static_cast<std::int64_t>(std::floor(center + reach - 0.5)));
        FilterTaps& taps = all[static_cast<std::size_t>(index)];
        taps.first = first;
        for (std::int64_t sample = first; sample <= last; ++sample) {
            taps.weights.push_back(lanczos((static_cast<double>(sample) + 0.5 - center) / stretch));
        }
        quantize(taps.weights);

        const std::int64_t mirrored = outputSize - 1 - index;
        if (mirrored != index) {
            all[static_cast<std::size_t>(mirrored)] = {inputSize - 1 - last,
                                                       {taps.weights.rbegin(), taps.weights.rend()}};
        }
    }
    return all;
}

void resample(const ImageView& source, std::int64_t width, std::int64_t height,
              std::span<std::uint8_t> output) {
    const std::vector<FilterTaps> columns = lanczosTaps(source.width, width);
    const std::vector<FilterTaps> rows = lanczosTaps(source.height, height);
    std::size_t tallest = 0;
    for (const FilterTaps& taps : rows) {
        tallest = std::max(tallest, taps.weights.size());
    }

    constexpr std::int64_t rowsPerStrip = 64;
    const RowStrips strips(height, rowsPerStrip);
    forEachInParallel(strips.count(), [&](std::int64_t strip) {
        ColumnFilteredRows filtered(source, columns, tallest);
        std::vector<double> sums(columns.size() * bytesPerPixel);
        const RowRange range = strips[strip];
        for (std::int64_t y = range.first; y < range.end(); ++y) {
            const FilterTaps& taps = rows[static_cast<std::size_t>(y)];
            std::fill(sums.begin(), sums.end(), 0.0);
            for (std::size_t tap = 0; tap < taps.weights.size(); ++tap) {
                const float* row = filtered.row(taps.first + static_cast<std::int64_t>(tap));
                const double weight = taps.weights[tap];
                for (std::size_t index = 0; index < sums.size(); ++index) {
                    sums[index] += weight * static_cast<double>(row[index]);
                }
            }
            convertRow(sums, output.data() + y * width * bytesPerPixel);
        }
    });
}

}  // namespace quarlin

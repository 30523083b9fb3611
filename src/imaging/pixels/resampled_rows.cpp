#include "imaging/pixels/resampled_rows.h"

#include "imaging/base/parallel.h"
#include "imaging/base/row_strips.h"
#include "imaging/pixels/resample_rows.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace quarlin {

namespace {

/// The rows that are read and filtered at a time: large enough to keep several cores busy.
std::int64_t rowsPerBatch(const RowReader& source) {
    constexpr std::int64_t batchBytes = 1 << 20;
    return std::clamp<std::int64_t>(batchBytes / source.bytesPerRow(), 1, source.height());
}

std::int64_t tallest(const std::vector<FilterTaps>& taps) {
    std::size_t most = 0;
    for (const FilterTaps& each : taps) {
        most = std::max(most, each.weights.size());
    }
    return static_cast<std::int64_t>(most);
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

}  // namespace

ResampledRows::ResampledRows(std::unique_ptr<RowReader> source, std::int64_t width, std::int64_t height)
    : RowReader(width, height),
      m_source(std::move(source)),
      m_columnTaps(lanczosTaps(m_source->width(), width)),
      m_rowTaps(lanczosTaps(m_source->height(), height)),
      m_rowsPerBatch(rowsPerBatch(*m_source)),
      m_heldRows(std::min(m_source->height(), tallest(m_rowTaps) + m_rowsPerBatch)),
      m_filtered(pixelCount(m_heldRows, width * bytesPerPixel)) {}

void ResampledRows::readRows(std::int64_t count, std::uint8_t* rows) {
    // The batches that these rows need, as they are counted in this call.
    const std::int64_t first = m_source->position();
    const std::int64_t end = m_rowTaps[static_cast<std::size_t>(position() + count - 1)].end();
    const RowStrips batches(std::max<std::int64_t>(0, end - first), m_rowsPerBatch);
    const auto bufferOf = [&](std::int64_t batch) -> PixelBuffer& {
        return m_batches[static_cast<std::size_t>(batch) % m_batches.size()];
    };
    const auto read = [&](std::int64_t batch) {
        PixelBuffer& buffer = bufferOf(batch);
        buffer.resize(static_cast<std::size_t>(m_rowsPerBatch * m_source->bytesPerRow()));
        m_source->read(batches[batch].count, buffer.data());
        return true;
    };
    RowRange done{position(), 0};
    const auto scaleUpTo = [&](std::int64_t filtered) {
        const RowRange ready = rowsMadeOf(filtered, {done.end(), position() + count - done.end()});
        combine(ready, rows + (ready.first - position()) * bytesPerRow());
        done.count += ready.count;
    };
    const auto filter = [&](std::int64_t batch) {
        const RowRange range = batches[batch];
        filterBatch(bufferOf(batch), {first + range.first, range.count});
        scaleUpTo(first + range.end());
        return true;
    };
    scaleUpTo(first);
    doInStep(batches.count(), static_cast<std::int64_t>(m_batches.size()), read, filter);
}

RowRange ResampledRows::rowsMadeOf(std::int64_t filtered, RowRange rows) const {
    RowRange made{rows.first, 0};
    while (made.count < rows.count && m_rowTaps[static_cast<std::size_t>(made.end())].end() <= filtered) {
        ++made.count;
    }
    return made;
}

float* ResampledRows::filteredRow(std::int64_t y) {
    return m_filtered.data() + y % m_heldRows * width() * bytesPerPixel;
}

void ResampledRows::filterBatch(const PixelBuffer& batch, RowRange rows) {
    constexpr std::int64_t rowsPerPart = 8;
    const RowStrips parts(rows.count, rowsPerPart);
    forEachInParallel(parts.count(), [&](std::int64_t part) {
        std::vector<double, UninitializedAllocator<double>> wide(
            static_cast<std::size_t>(m_source->bytesPerRow()));
        const RowRange range = parts[part];
        for (std::int64_t index = range.first; index < range.end(); ++index) {
            filterPixelRow(batch.data() + index * m_source->bytesPerRow(), m_columnTaps, wide,
                           filteredRow(rows.first + index));
        }
    });
}

void ResampledRows::combine(RowRange rows, std::uint8_t* output) {
    constexpr std::int64_t rowsPerPart = 8;
    const RowStrips parts(rows.count, rowsPerPart);
    forEachInParallel(parts.count(), [&](std::int64_t part) {
        std::vector<double> sums(static_cast<std::size_t>(width() * bytesPerPixel));
        const RowRange range = parts[part];
        for (std::int64_t index = range.first; index < range.end(); ++index) {
            const FilterTaps& taps = m_rowTaps[static_cast<std::size_t>(rows.first + index)];
            std::fill(sums.begin(), sums.end(), 0.0);
            for (std::size_t tap = 0; tap < taps.weights.size(); ++tap) {
                const float* row = filteredRow(taps.first + static_cast<std::int64_t>(tap));
                const double weight = taps.weights[tap];
                for (std::size_t sample = 0; sample < sums.size(); ++sample) {
                    sums[sample] += weight * static_cast<double>(row[sample]);
                }
            }
            convertRow(sums, output + index * bytesPerRow());
        }
    });
}

}  // namespace quarlin

#include "imaging/pixels/resampled_rows.h"

#include "imaging/base/parallel.h"
#include "imaging/base/row_strips.h"
#include "imaging/pixels/row_filter.h"

#include <algorithm>
#include <utility>

namespace quarlin {

namespace {

/// The rows that one thread filters at a time.
constexpr std::int64_t rowsPerPart = 8;

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

/// Rows with `width` pixels are held at a distance of so many samples.
std::int64_t samplesPerRow(std::int64_t width) {
    constexpr std::int64_t padding = filteredRowPadding;
    return (width * bytesPerPixel + padding - 1) / padding * padding;
}

}  // namespace

ResampledRows::ResampledRows(std::unique_ptr<RowReader> source, std::int64_t width, std::int64_t height)
    : RowReader(width, height),
      m_source(std::move(source)),
      m_columns(lanczosTaps(m_source->width(), width)),
      m_rowTaps(lanczosTaps(m_source->height(), height)),
      m_rowsPerBatch(rowsPerBatch(*m_source)),
      m_heldRows(std::min(m_source->height(), tallest(m_rowTaps) + m_rowsPerBatch)),
      m_samplesPerRow(samplesPerRow(width)),
      m_filtered(pixelCount(m_heldRows, m_samplesPerRow)) {}

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
        buffer.resize(static_cast<std::size_t>(m_rowsPerBatch * m_source->bytesPerRow()) +
                      ColumnFilter::bytesReadPastTheEnd);
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

std::int32_t* ResampledRows::filteredRow(std::int64_t y) {
    return m_filtered.data() + y % m_heldRows * m_samplesPerRow;
}

void ResampledRows::filterBatch(const PixelBuffer& batch, RowRange rows) {
    const RowStrips parts(rows.count, rowsPerPart);
    forEachInParallel(parts.count(), [&](std::int64_t part) {
        const RowRange range = parts[part];
        std::array<std::int32_t*, rowsPerPart> output;
        for (std::int64_t index = 0; index < range.count; ++index) {
            output[static_cast<std::size_t>(index)] = filteredRow(rows.first + range.first + index);
        }
        m_columns.filter(batch.data() + range.first * m_source->bytesPerRow(), m_source->bytesPerRow(),
                         std::span(output).first(static_cast<std::size_t>(range.count)));
    });
}

void ResampledRows::combine(RowRange rows, std::uint8_t* output) {
    const RowStrips parts(rows.count, rowsPerPart);
    forEachInParallel(parts.count(), [&](std::int64_t part) {
        const RowRange range = parts[part];
        std::vector<const std::int32_t*> inputs;
        for (std::int64_t index = range.first; index < range.end(); ++index) {
            const FilterTaps& taps = m_rowTaps[static_cast<std::size_t>(rows.first + index)];
            inputs.clear();
            for (std::int64_t y = taps.first; y < taps.end(); ++y) {
                inputs.push_back(filteredRow(y));
            }
            filterRows(inputs, taps.weights,
                       {output + index * bytesPerRow(), static_cast<std::size_t>(bytesPerRow())});
        }
    });
}

}  // namespace quarlin

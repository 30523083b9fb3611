#pragma once

#include "imaging/base/row_strips.h"
#include "imaging/pixels/column_filter.h"
#include "imaging/pixels/lanczos_taps.h"
#include "imaging/pixels/row_reader.h"

#include <array>
#include <cstdint>
#include <memory>
#include <vector>

namespace quarlin {

/// The rows of an image scaled to another size. It works on the encoded (non-linear) values, and no color
/// comes out larger than its alpha. Only the input rows that the next output row depends on are held.
///
/// Every sum is exact (weights are multiples of 2^-24, values between the passes multiples of 2^-14). So
/// neither the order of additions nor the number of threads matters, and a mirrored image gives the mirrored
/// result.
class ResampledRows final : public RowReader {
public:
    ResampledRows(std::unique_ptr<RowReader> source, std::int64_t width, std::int64_t height);

private:
    void readRows(std::int64_t count, std::uint8_t* rows) override;

    /// Those of `rows`, from the first on, that can be made when the first `filtered` input rows are there.
    RowRange rowsMadeOf(std::int64_t filtered, RowRange rows) const;
    /// Where input row `y` is held after its columns are filtered.
    std::int32_t* filteredRow(std::int64_t y);
    /// Filters the columns of the input rows `rows`.
    void filterBatch(const PixelBuffer& batch, RowRange rows);
    /// Makes output rows of the filtered input rows.
    void combine(RowRange rows, std::uint8_t* output);

    std::unique_ptr<RowReader> m_source;
    ColumnFilter m_columns;
    std::vector<FilterTaps> m_rowTaps;
    std::int64_t m_rowsPerBatch;
    /// Input rows with filtered columns, each at its number modulo `m_heldRows`.
    std::int64_t m_heldRows;
    std::int64_t m_samplesPerRow;
    std::vector<std::int32_t, UninitializedAllocator<std::int32_t>> m_filtered;
    /// Input rows that are read but not yet filtered, used in turn.
    std::array<PixelBuffer, 2> m_batches;
};

}  // namespace quarlin

#pragma once

#include "imaging/pixels/row_reader.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace quarlin {

/// A reader whose rows are made in two steps: a codec decodes samples, in whatever form the file has them,
/// and then these are converted to pixels. Where many rows are read at once, both steps work at the same
/// time, a few strips apart.
class TwoStepReader : public RowReader {
protected:
    /// `samplesPerRow` is the number of bytes of a decoded row.
    TwoStepReader(std::int64_t width, std::int64_t height, std::int64_t samplesPerRow)
        : RowReader(width, height), m_samplesPerRow(samplesPerRow) {}

    std::int64_t samplesPerRow() const { return m_samplesPerRow; }

    /// The first step: decodes the next `count` rows into `samples`, where `spareBytes` may follow that are
    /// written or read, but not used. Called in the order of the rows, but on any thread.
    virtual void decodeRows(std::int64_t count, std::uint8_t* samples) = 0;

    /// The second step: converts the next `count` decoded rows. It may change the samples. Called in the
    /// order of the rows, but on any thread.
    virtual void convertRows(std::int64_t count, std::uint8_t* samples, std::uint8_t* pixels) = 0;

    static constexpr std::size_t spareBytes = 8;

private:
    void readRows(std::int64_t count, std::uint8_t* rows) final;

    std::int64_t m_samplesPerRow;
    /// Decoded strips, used in turn.
    std::vector<PixelBuffer> m_buffers;
};

}  // namespace quarlin

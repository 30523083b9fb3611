#pragma once

#include "imaging/pixels/lanczos_taps.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace quarlin {

/// Filtered samples are whole numbers of this unit.
inline constexpr double filteredUnit = 1.0 / (1 << 14);

/// Scales rows of pixels, four bytes each, to another width.
///
/// The bytes are multiplied with the weights in two halves of 12 bits, so that all sums are exact in 32-bit
/// integers. Only the sum of all taps is rounded, to a multiple of `filteredUnit`.
class ColumnFilter {
public:
    explicit ColumnFilter(std::vector<FilterTaps> taps);
    ColumnFilter(ColumnFilter&&) = default;
    ColumnFilter(const ColumnFilter&) = delete;

    /// The number of output pixels in a row.
    std::int64_t width() const { return static_cast<std::int64_t>(m_taps.size()); }

    /// The number of bytes that must be readable after the last input row.
    static constexpr std::size_t bytesReadPastTheEnd = 16;

    /// Filters `output.size()` rows; those of the input follow each other at a distance of `bytesPerRow`.
    /// `output` names where the `4 * width()` samples of each row go.
    void filter(const std::uint8_t* input, std::int64_t bytesPerRow,
                std::span<std::int32_t* const> output) const;

    /// The same tap by tap, in double precision.
    void filterPlainly(const std::uint8_t* input, std::int64_t bytesPerRow,
                       std::span<std::int32_t* const> output) const;

    /// The weights of four neighboring taps in units of 2^-24, each split into `4096 * upper + lower`. Each
    /// number holds the 16-bit halves of two taps, as a vector multiplies them.
    struct PackedWeights {
        std::int32_t upper[2];
        std::int32_t lower[2];
    };

    /// Where an output pixel starts in the input, and its weights.
    struct PackedTaps {
        std::int64_t first;
        std::span<const PackedWeights> weights;
    };

private:
    std::vector<FilterTaps> m_taps;
    /// All output pixels after each other; the last taps of each are filled up with zeros.
    std::vector<PackedWeights> m_weights;
    /// Empty when there are so many taps that sums could exceed 32 bits.
    std::vector<PackedTaps> m_packed;
};

}  // namespace quarlin

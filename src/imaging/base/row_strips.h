#pragma once

#include <algorithm>
#include <cstdint>

namespace quarlin {

/// A run of rows: `count` rows from row `first` on.
struct RowRange {
    std::int64_t first = 0;
    std::int64_t count = 0;

    std::int64_t end() const { return first + count; }
};

/// `rows` with `margin` rows more on either side, as far as an image of `height` rows has them.
inline RowRange withMargin(RowRange rows, std::int64_t margin, std::int64_t height) {
    const std::int64_t first = std::max<std::int64_t>(0, rows.first - margin);
    return {first, std::min(height, rows.end() + margin) - first};
}

/// An image of `height` rows cut into strips of `rowsPerStrip` rows. The last strip is shorter where the
/// height is not a multiple.
class RowStrips {
public:
    RowStrips(std::int64_t height, std::int64_t rowsPerStrip)
        : m_height(height), m_rowsPerStrip(rowsPerStrip) {}

    std::int64_t count() const { return (m_height + m_rowsPerStrip - 1) / m_rowsPerStrip; }

    RowRange operator[](std::int64_t strip) const {
        const std::int64_t first = strip * m_rowsPerStrip;
        return {first, std::min(m_rowsPerStrip, m_height - first)};
    }

private:
    std::int64_t m_height;
    std::int64_t m_rowsPerStrip;
};

}  // namespace quarlin

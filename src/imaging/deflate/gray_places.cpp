#include "imaging/deflate/gray_places.h"

#include <algorithm>

namespace quarlin {

GrayPlaces::GrayPlaces(const GrayResiduals& residuals)
    : m_width(residuals.width),
      m_rows(residuals.rows),
      m_values(static_cast<std::size_t>(farthestBack + placeOf(m_rows)) + spare),
      m_restrictions(m_values.size()) {
    std::fill_n(m_values.begin(), farthestBack, std::uint8_t{0});
    std::fill_n(m_restrictions.begin(), farthestBack, std::uint8_t{longestMatch});
    for (std::int64_t row = 0; row < m_rows; ++row) {
        std::uint8_t* values = m_values.data() + farthestBack + placeOf(row);
        std::copy_n(residuals.values + row * m_width, m_width, values);
        // The place after the row, unless the next row begins there.
        values[m_width] = 0;

        std::uint8_t* restrictions = m_restrictions.data() + farthestBack + placeOf(row);
        const unsigned remainder = remainderOf(row) << 6U;
        std::fill_n(restrictions, m_width, static_cast<std::uint8_t>(remainder));
        for (std::int64_t left = 0; left < std::min<std::int64_t>(longestMatch, m_width); ++left) {
            restrictions[m_width - left] = static_cast<std::uint8_t>(remainder + longestMatch - left);
        }
        restrictions[0] = static_cast<std::uint8_t>(remainder + longestMatch);
    }
    std::fill_n(m_values.end() - static_cast<std::ptrdiff_t>(spare), spare, std::uint8_t{0});
}

}  // namespace quarlin

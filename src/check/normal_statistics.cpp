#include "check/normal_statistics.h"

#include "imaging/pixels/image_view.h"
#include "imaging/pixels/pixel_image.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

namespace quarlin {

namespace {

/// The component that each byte represents.
std::array<double, 256> componentTable() {
    std::array<double, 256> table{};
    constexpr double middle = 127.5;
    for (std::size_t byte = 0; byte < table.size(); ++byte) {
        table[byte] = (static_cast<double>(byte) - middle) / middle;
    }
    return table;
}

/// The slopes of one row of normals.
struct Slopes {
    std::vector<double> right;
    std::vector<double> green;

    explicit Slopes(std::size_t width) : right(width), green(width) {}
};

/// Sums over the pixels of a map.
struct Sums {
    std::int64_t offLength = 0;
    std::int64_t inward = 0;
    /// Squares and products of the changes of the slopes: of `right` down the image, and of `green` to the
    /// right.
    double down = 0;
    double across = 0;
    double product = 0;
};

class Summation {
public:
    explicit Summation(const QImage& image) : m_image(image), m_components(componentTable()) {}

    Sums sum() {
        const auto width = static_cast<std::size_t>(m_image.width);
        std::array<Slopes, 3> rows{Slopes(width), Slopes(width), Slopes(width)};
        for (std::int64_t y = 0; y < m_image.height; ++y) {
            readRow(y, rows[static_cast<std::size_t>(y % 3)]);
            if (y >= 2) {
                compare(rows[static_cast<std::size_t>((y - 2) % 3)],
                        rows[static_cast<std::size_t>((y - 1) % 3)], rows[static_cast<std::size_t>(y % 3)]);
            }
        }
        return m_sums;
    }

private:
    void readRow(std::int64_t y, Slopes& slopes) {
        // A normal parallel to the surface has no finite slope.
        constexpr double flattest = 0.1;
        const std::uint8_t* pixel = m_image.row(y);
        for (std::size_t x = 0; x < slopes.right.size(); ++x, pixel += bytesPerPixel) {
            const double red = m_components[pixel[0]];
            const double green = m_components[pixel[1]];
            const double blue = m_components[pixel[2]];
            const double length = std::sqrt(red * red + green * green + blue * blue);
            m_sums.offLength += std::abs(length - 1) > lengthTolerance ? 1 : 0;
            m_sums.inward += blue < 0 ? 1 : 0;
            slopes.right[x] = red / std::max(flattest, blue);
            slopes.green[x] = green / std::max(flattest, blue);
        }
    }

    void compare(const Slopes& above, const Slopes& middle, const Slopes& below) {
        for (std::size_t x = 1; x + 1 < middle.right.size(); ++x) {
            const double down = below.right[x] - above.right[x];
            const double across = middle.green[x + 1] - middle.green[x - 1];
            m_sums.down += down * down;
            m_sums.across += across * across;
            m_sums.product += down * across;
        }
    }

    ImageView m_image;
    std::array<double, 256> m_components;
    Sums m_sums;
};

}  // namespace

NormalStatistics normalStatistics(const QImage& image) {
    const Sums sums = Summation(image).sum();
    const auto count = static_cast<double>(pixelCount(image.width(), image.height()));
    NormalStatistics statistics{.offLength = static_cast<double>(sums.offLength) / count,
                                .inward = static_cast<double>(sums.inward) / count};
    // The sum that rounding to bytes causes in a flat map. Each value has an error of up to half a step of 1
    // / 127.5, so the difference of two has a variance of 2 / 12 of a squared step.
    constexpr double step = 1 / 127.5;
    const double noise = count * step * step / 6;
    if (sums.down > noise && sums.across > noise) {
        statistics.greenDirection = sums.product / std::sqrt(sums.down * sums.across);
    }
    return statistics;
}

}  // namespace quarlin

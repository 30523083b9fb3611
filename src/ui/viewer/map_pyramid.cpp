#include "ui/viewer/map_pyramid.h"

#include "imaging/base/parallel.h"
#include "imaging/base/row_strips.h"
#include "imaging/pixels/image_view.h"
#include "imaging/pixels/premultiply.h"

#include <algorithm>
#include <atomic>
#include <cstdint>
#include <functional>

namespace quarlin {

namespace {

/// A copy is not halved again when no side is longer.
constexpr int smallestSide = 256;
constexpr std::int64_t rowsPerStrip = 64;

void forEachStrip(int height, const std::function<void(RowRange)>& work) {
    const RowStrips strips(height, rowsPerStrip);
    forEachInParallel(strips.count(), [&](std::int64_t strip) { work(strips[strip]); });
}

bool isTransparentAnywhere(const ImageView& image) {
    std::atomic<bool> found = false;
    forEachStrip(static_cast<int>(image.height), [&](RowRange rows) {
        for (std::int64_t y = rows.first; y < rows.end() && !found; ++y) {
            const std::uint8_t* row = image.row(y);
            for (std::int64_t x = 0; x < image.width; ++x) {
                if (row[x * bytesPerPixel + 3] != 255) {
                    found = true;
                    break;
                }
            }
        }
    });
    return found;
}

/// Each pixel is the mean of four; the last of an odd row or column is that of the two, or the one, there
/// are.
QImage halved(const QImage& image) {
    QImage half((image.width() + 1) / 2, (image.height() + 1) / 2, pixelFormat);
    if (half.isNull()) {
        return half;
    }
    const ImageView source(image);
    const int width = half.width();
    const std::int64_t bytesPerRow = half.bytesPerLine();
    std::uint8_t* pixels = half.bits();
    forEachStrip(half.height(), [&](RowRange rows) {
        for (std::int64_t y = rows.first; y < rows.end(); ++y) {
            const std::uint8_t* above = source.row(2 * y);
            const std::uint8_t* below = source.row(std::min(2 * y + 1, source.height - 1));
            std::uint8_t* out = pixels + y * bytesPerRow;
            for (std::int64_t x = 0; x < width; ++x) {
                const std::int64_t left = 2 * x * bytesPerPixel;
                const std::int64_t right = std::min(2 * x + 1, source.width - 1) * bytesPerPixel;
                for (std::int64_t channel = 0; channel < bytesPerPixel; ++channel) {
                    const int sum = above[left + channel] + above[right + channel] + below[left + channel] +
                                    below[right + channel];
                    out[x * bytesPerPixel + channel] = static_cast<std::uint8_t>((sum + 2) / 4);
                }
            }
        }
    });
    return half;
}

}  // namespace

MapPyramid::MapPyramid(const QImage& map) : m_size(map.size()) {
    if (map.isNull()) {
        return;
    }
    m_hasTransparency = isTransparentAnywhere(ImageView(map));
    m_levels.push_back({map});
    while (std::max(m_levels.back().image.width(), m_levels.back().image.height()) > smallestSide) {
        const Level& last = m_levels.back();
        QImage half = halved(last.image);
        // Without memory for a copy, the map is drawn from what there is.
        if (half.isNull()) {
            break;
        }
        m_levels.push_back({std::move(half), last.across / 2, last.down / 2});
    }
}

MapPyramid::MapPyramid(const QImage& preview, const QSize& size)
    : m_size(size), m_hasTransparency(isTransparentAnywhere(ImageView(preview))) {
    m_levels.push_back({preview, static_cast<double>(preview.width()) / size.width(),
                        static_cast<double>(preview.height()) / size.height()});
}

bool MapPyramid::isWhole() const { return !m_levels.empty() && m_levels.front().image.size() == m_size; }

const MapPyramid::Level& MapPyramid::levelFor(double scale) const {
    const auto smaller = std::find_if(m_levels.rbegin(), m_levels.rend(), [&](const Level& level) {
        return level.across >= scale && level.down >= scale;
    });
    return smaller == m_levels.rend() ? m_levels.front() : *smaller;
}

QColor MapPyramid::valueAt(const QPoint& pixel) const {
    const std::uint8_t* value =
        ImageView(m_levels.front().image).row(pixel.y()) + std::int64_t{pixel.x()} * bytesPerPixel;
    const std::uint8_t alpha = value[3];
    return {unpremultiplied(value[0], alpha), unpremultiplied(value[1], alpha),
            unpremultiplied(value[2], alpha), alpha};
}

qsizetype MapPyramid::bytes() const {
    qsizetype sum = 0;
    for (const Level& level : m_levels) {
        sum += level.image.sizeInBytes();
    }
    return sum;
}

}  // namespace quarlin

#pragma once

#include <QColor>
#include <QImage>
#include <QPoint>
#include <QSize>

#include <vector>

namespace quarlin {

/// A map, and copies of it at half, a quarter and so on of its size, so that it can be drawn small without
/// reading all of it. Images are in `pixelFormat`.
class MapPyramid {
public:
    /// One of the copies.
    struct Level {
        QImage image;
        /// The number of its pixels, across and down, for each pixel of the map.
        double across = 1;
        double down = 1;
    };

    /// A null `map` gives an empty pyramid.
    explicit MapPyramid(const QImage& map);

    /// `preview` in the place of a map of `size` that is not there yet.
    MapPyramid(const QImage& preview, const QSize& size);

    /// The size of the map in pixels.
    const QSize& size() const { return m_size; }

    /// Whether the map itself is there.
    bool isWhole() const;

    bool hasTransparency() const { return m_hasTransparency; }

    /// The smallest copy that has a pixel for each pixel of a drawing at `scale` pixels per pixel of the map;
    /// the largest one if none has.
    const Level& levelFor(double scale) const;

    /// The value of a pixel of the map, which must be whole: with straight alpha, as in the exported file.
    QColor valueAt(const QPoint& pixel) const;

    /// The memory that the pyramid takes.
    qsizetype bytes() const;

private:
    QSize m_size;
    bool m_hasTransparency = false;
    std::vector<Level> m_levels;
};

}  // namespace quarlin

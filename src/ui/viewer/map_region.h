#pragma once

#include "model/texture_slot_kind.h"

#include <QImage>
#include <QPointF>
#include <QSize>

#include <optional>

namespace quarlin {

class MapPyramid;

/// A part of a map, as it is to be drawn.
struct MapRegion {
    /// The place in the map, in its pixels, of the top left corner of the drawing.
    QPointF origin;
    /// Pixels of the drawing for each pixel of the map.
    double scale = 1;
    /// The size of the drawing in pixels.
    QSize size;
    /// Whether the map repeats beyond its edges. If not, its outermost pixels do.
    bool repeats = false;
    /// The channel to draw in gray, with its values as in the exported file; nothing for the colors.
    std::optional<TextureChannel> channel = std::nullopt;
};

/// Draws a part of `map`, in `pixelFormat`. At a scale of 1 or more, each pixel of the map is a sharp square;
/// below, and as long as the map is not whole, the drawing is smooth.
QImage drawnRegion(const MapPyramid& map, const MapRegion& region);

}  // namespace quarlin

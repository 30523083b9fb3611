#pragma once

#include "model/texture_slot_kind.h"

#include <QRectF>

#include <optional>

class QPainter;
class QPalette;
class QPoint;
class QRect;

namespace quarlin {

class MapPyramid;

/// How a map is shown on a widget.
struct MapPlace {
    /// Where all of it is, copies included, in pixels of the widget.
    QRectF area;
    /// Pixels of the widget for each pixel of the map.
    double scale = 1;
    /// Whether the map is repeated over the area.
    bool repeats = false;
    /// The channel to show in gray; nothing for the colors.
    std::optional<TextureChannel> channel = std::nullopt;
};

/// Paints what is seen of `map` within `part`, a part of the area, over a checkerboard where it is
/// transparent.
void paintMap(QPainter& painter, const QPalette& palette, const MapPyramid& map, const MapPlace& place,
              const QRect& part);

/// Paints a cross around the pixel at `place`, which can be seen on any color.
void paintMark(QPainter& painter, const QPoint& place);

}  // namespace quarlin

#include "ui/viewer/map_painting.h"

#include "ui/style/checkerboard.h"
#include "ui/style/painting.h"
#include "ui/viewer/map_pyramid.h"
#include "ui/viewer/map_region.h"

#include <QPainter>

#include <utility>

namespace quarlin {

void paintMap(QPainter& painter, const QPalette& palette, const MapPyramid& map, const MapPlace& place,
              const QRect& part) {
    const double density = deviceScale(painter);
    QImage drawing = drawnRegion(map, {.origin = (part.topLeft() - place.area.topLeft()) / place.scale,
                                       .scale = place.scale * density,
                                       .size = (QSizeF(part.size()) * density).toSize(),
                                       .repeats = place.repeats,
                                       .channel = place.channel});
    drawing.setDevicePixelRatio(density);
    painter.save();
    painter.setClipRect(place.area);
    if (map.hasTransparency() && !place.channel) {
        painter.fillRect(part, checkerboard(palette));
    }
    painter.drawImage(part.topLeft(), drawing);
    painter.restore();
}

void paintMark(QPainter& painter, const QPoint& place) {
    constexpr int inner = 5;
    constexpr int outer = 12;
    for (const auto& [color, width] : {std::pair{QColor(Qt::white), 3.0}, {QColor(Qt::black), 1.0}}) {
        painter.setPen(QPen(color, width));
        for (const QPoint& direction : {QPoint(1, 0), QPoint(-1, 0), QPoint(0, 1), QPoint(0, -1)}) {
            painter.drawLine(place + inner * direction, place + outer * direction);
        }
    }
}

}  // namespace quarlin

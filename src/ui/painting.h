#pragma once

#include <QColor>
#include <QPainter>
#include <QRectF>

class QWidget;

namespace quarlin {

/// Fills a rounded rectangle and strokes its edge, one pixel wide, inside of it. A transparent colour leaves
/// either out.
void paintSurface(QPainter& painter, const QRectF& rectangle, double radius, const QColor& fill,
                  const QColor& border);

/// Marks `widget` as the one that keys go to, if it is and the keyboard is being used to move about.
/// `rectangle` is the shape that the ring lies around the inner edge of.
void paintFocusRing(QPainter& painter, const QWidget& widget, const QRectF& rectangle, double radius);

}  // namespace quarlin

#pragma once

#include <QColor>
#include <QPainter>
#include <QRectF>

class QPalette;
class QStyleOption;
class QWidget;

namespace quarlin {

/// Fills a rounded rectangle and strokes its edge, one pixel wide, inside of it. A transparent color leaves
/// either out.
void paintSurface(QPainter& painter, const QRectF& rectangle, double radius, const QColor& fill,
                  const QColor& border);

/// Draws the dot that marks what wants attention, with a rim in the window's color.
void paintDot(QPainter& painter, const QPalette& palette, const QPointF& center);

/// The number of device pixels per pixel that `painter` draws with.
double deviceScale(const QPainter& painter);

/// What a ring is drawn on, which decides its color.
enum class RingGround { plain, accent };

/// Draws a ring around the inner edge of `rectangle`: in the color of rings, or, on the accent color, in that
/// of text and away from the edge.
void paintRing(QPainter& painter, const QPalette& palette, const QRectF& rectangle, double radius,
               RingGround ground = RingGround::plain);

/// Draws the ring if the control has the focus and the keyboard is being used to move about. `rectangle` is
/// the shape that the ring follows, inside of its edge.
void paintFocusRing(QPainter& painter, const QStyleOption& control, const QRectF& rectangle, double radius,
                    RingGround ground = RingGround::plain);
void paintFocusRing(QPainter& painter, const QWidget& control, const QRectF& rectangle, double radius,
                    RingGround ground = RingGround::plain);

}  // namespace quarlin

#include "ui/style/painting.h"

#include "ui/style/colors.h"

#include <QImage>
#include <QStyleOption>
#include <QWidget>

namespace quarlin {

void paintSurface(QPainter& painter, const QRectF& rectangle, double radius, const QColor& fill,
                  const QColor& border) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(fill);
    painter.drawRoundedRect(rectangle, radius, radius);
    if (border.alpha() > 0) {
        painter.setPen(QPen(border, 1));
        painter.setBrush(Qt::NoBrush);
        painter.drawRoundedRect(rectangle.adjusted(0.5, 0.5, -0.5, -0.5), radius - 0.5, radius - 0.5);
    }
    painter.restore();
}

void paintDot(QPainter& painter, const QPalette& palette, const QPointF& center) {
    constexpr double radius = 3;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(palette.color(QPalette::Active, QPalette::Window), 1));
    painter.setBrush(accentColor(palette));
    painter.drawEllipse(center, radius + 0.5, radius + 0.5);
    painter.restore();
}

double deviceScale(const QPainter& painter) { return painter.deviceTransform().m11(); }

void paintRing(QPainter& painter, const QPalette& palette, const QRectF& rectangle, double radius,
               RingGround ground) {
    constexpr double thickness = 2;
    const bool isOnAccent = ground == RingGround::accent;
    const double distance = isOnAccent ? thickness / 2 + 1.5 : thickness / 2;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(isOnAccent ? onAccentColor(palette) : ringColor(palette), thickness));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(rectangle.adjusted(distance, distance, -distance, -distance), radius - distance,
                            radius - distance);
    painter.restore();
}

void paintFocusRing(QPainter& painter, const QStyleOption& control, const QRectF& rectangle, double radius,
                    RingGround ground) {
    constexpr QStyle::State focusedByKeyboard = QStyle::State_HasFocus | QStyle::State_KeyboardFocusChange;
    if ((control.state & focusedByKeyboard) == focusedByKeyboard) {
        paintRing(painter, control.palette, rectangle, radius, ground);
    }
}

void paintFocusRing(QPainter& painter, const QWidget& control, const QRectF& rectangle, double radius,
                    RingGround ground) {
    QStyleOption option;
    option.initFrom(&control);
    paintFocusRing(painter, option, rectangle, radius, ground);
}

}  // namespace quarlin

#include "ui/controls/stepper.h"

#include "ui/controls/range_accessible.h"
#include "ui/style/colors.h"
#include "ui/style/metrics.h"
#include "ui/style/painting.h"

#include <QMouseEvent>
#include <QPainter>
#include <QSignalBlocker>

namespace quarlin {

Stepper::Stepper(int minimum, int maximum, QWidget* parent) : QAbstractSlider(parent) {
    installRangeAccessibility();
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setRange(minimum, maximum);
    setPageStep(1);
}

void Stepper::showValue(int value) {
    const QSignalBlocker quietly(this);
    setValue(value);
}

void Stepper::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) {
        return event->ignore();
    }
    m_pressed = upperHalf().contains(event->position().toPoint()) ? 1 : -1;
    triggerAction(m_pressed > 0 ? SliderSingleStepAdd : SliderSingleStepSub);
    update();
}

void Stepper::mouseReleaseEvent(QMouseEvent*) {
    m_pressed = 0;
    update();
}

void Stepper::paintArrow(QPainter& painter, const QRect& half, double direction, bool usable) const {
    const QColor color = usable ? primaryColor(palette()) : disabledColor(palette());
    painter.setPen(QPen(color, 1.5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    const QPointF center = QRectF(half).center();
    const QPointF arrow[] = {center + QPointF(-3.25, 1.6 * direction), center + QPointF(0, -1.6 * direction),
                             center + QPointF(3.25, 1.6 * direction)};
    painter.drawPolyline(arrow, 3);
}

void Stepper::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QColor secondary = secondaryColor(palette());
    paintSurface(painter, rect(), metrics::controlRadius, palette().color(QPalette::Active, QPalette::Button),
                 withOpacity(secondary, 0.34));
    if (m_pressed != 0) {
        const QRectF half = m_pressed > 0 ? upperHalf() : lowerHalf();
        paintSurface(painter, half.adjusted(1, 1, -1, -1), metrics::controlRadius - 1,
                     withOpacity(secondary, 0.24), Qt::transparent);
    }
    paintArrow(painter, upperHalf(), 1, value() < maximum());
    paintArrow(painter, lowerHalf(), -1, value() > minimum());
    paintFocusRing(painter, *this, rect(), metrics::controlRadius);
}

}  // namespace quarlin

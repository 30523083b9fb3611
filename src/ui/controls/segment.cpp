#include "ui/controls/segment.h"

#include "ui/style/colors.h"
#include "ui/style/metrics.h"
#include "ui/style/painting.h"

#include <QPainter>

namespace quarlin {

namespace {

constexpr int sidePadding = 10;
constexpr int leastSidePadding = 3;
/// Between the chosen segment and the frame of the picker.
constexpr int inset = 2;

}  // namespace

Segment::Segment(const QString& title, QWidget* parent) : QRadioButton(title, parent) {
    // Repainted when the pointer enters and leaves.
    setAttribute(Qt::WA_Hover);
    setFocusPolicy(Qt::TabFocus);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

QSize Segment::sizeHint() const {
    return {fontMetrics().horizontalAdvance(text()) + 2 * sidePadding,
            qMax(metrics::controlHeight, fontMetrics().height() + 10)};
}

QSize Segment::minimumSizeHint() const {
    return {fontMetrics().horizontalAdvance(text()) + 2 * leastSidePadding, sizeHint().height()};
}

void Segment::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const QRectF area = QRectF(rect()).adjusted(inset, inset, -inset, -inset);
    constexpr double radius = metrics::controlRadius - inset;
    if (isChecked()) {
        paintSurface(painter, area, radius, accentColor(palette()), withOpacity(Qt::black, 0.12));
    } else if (underMouse()) {
        paintSurface(painter, area, radius, withOpacity(secondaryColor(palette()), isDown() ? 0.2 : 0.1),
                     Qt::transparent);
    }
    painter.setPen(isChecked() ? onAccentColor(palette()) : primaryColor(palette()));
    painter.drawText(rect(), Qt::AlignCenter, text());
    // Only the chosen segment takes the keyboard.
    paintFocusRing(painter, *this, area, radius, RingGround::accent);
}

}  // namespace quarlin

#include "ui/controls/toggle.h"

#include "ui/style/colors.h"
#include "ui/style/painting.h"

#include <QPainter>
#include <QPainterPath>
#include <QStyle>

namespace quarlin {

namespace {

constexpr int boxSize = 16;
constexpr int boxRadius = 4;
constexpr int titleGap = 8;
/// Room for the focus ring around the box.
constexpr int ringRoom = 2;

}  // namespace

Toggle::Toggle(const QString& title, QWidget* parent) : QCheckBox(title, parent) {
    setFocusPolicy(Qt::TabFocus);
    setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Fixed);
}

QSize Toggle::sizeHint() const {
    const QSize label = fontMetrics().size(Qt::TextShowMnemonic, text());
    return {boxSize + titleGap + label.width() + ringRoom, qMax(boxSize + 2 * ringRoom, label.height())};
}

void Toggle::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const auto placed = [this](const QRect& area) {
        return QRectF(QStyle::visualRect(layoutDirection(), rect(), area));
    };
    const QRectF box = placed({0, (height() - boxSize) / 2, boxSize, boxSize});
    const QColor secondary = secondaryColor(palette());
    if (isChecked()) {
        const QColor fill = accentColor(palette());
        paintSurface(painter, box, boxRadius, isDown() ? mixed(fill, Qt::black, 0.18) : fill,
                     withOpacity(Qt::black, 0.12));
        painter.setPen(QPen(onAccentColor(palette()), 1.8, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        QPainterPath mark(box.topLeft() + QPointF(4, 8.3));
        mark.lineTo(box.topLeft() + QPointF(6.9, 11.2));
        mark.lineTo(box.topLeft() + QPointF(12, 5.2));
        painter.drawPath(mark);
    } else {
        const QColor base = palette().color(QPalette::Active, QPalette::Base);
        paintSurface(painter, box, boxRadius, isDown() ? mixed(base, secondary, 0.2) : base,
                     withOpacity(secondary, 0.5));
    }
    painter.setPen(isEnabled() ? primaryColor(palette()) : disabledColor(palette()));
    painter.drawText(placed({boxSize + titleGap, 0, width() - boxSize - titleGap, height()}),
                     static_cast<int>(QStyle::visualAlignment(layoutDirection(), Qt::AlignLeft)) |
                         Qt::AlignVCenter | Qt::TextShowMnemonic,
                     text());
    paintFocusRing(painter, *this, rect(), boxRadius);
}

}  // namespace quarlin

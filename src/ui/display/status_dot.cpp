#include "ui/display/status_dot.h"

#include "ui/accessibility/accessible_role.h"
#include "ui/style/painting.h"

#include <QPainter>

namespace quarlin {

StatusDot::StatusDot(const QString& meaning, QWidget* parent) : QWidget(parent) {
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setToolTip(meaning);
    presentAs(*this, QAccessible::Graphic, meaning);
}

void StatusDot::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    paintDot(painter, palette(), QRectF(rect()).center());
}

}  // namespace quarlin

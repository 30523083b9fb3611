#include "ui/layout/separator.h"

#include "ui/style/colors.h"

#include <QPainter>

namespace quarlin {

Separator::Separator(Qt::Orientation orientation, QWidget* parent) : QWidget(parent) {
    if (orientation == Qt::Horizontal) {
        setFixedHeight(1);
    } else {
        setFixedWidth(1);
    }
}

void Separator::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), separatorColor(palette()));
}

}  // namespace quarlin

#include "ui/window/bar_background.h"

#include "ui/style/colors.h"

#include <QHBoxLayout>
#include <QPainter>

namespace quarlin {

BarBackground::BarBackground(QWidget* leading, QWidget* trailing, QWidget* parent) : QWidget(parent) {
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(0);
    row->addWidget(leading, 1);
    row->addWidget(trailing);
}

void BarBackground::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), barColor(palette()));
}

}  // namespace quarlin

#include "ui/style/checkerboard.h"

#include "ui/style/colors.h"

#include <QImage>
#include <QPainter>
#include <QPalette>

namespace quarlin {

QBrush checkerboard(const QPalette& palette) {
    constexpr int edge = 8;
    const QColor base = palette.color(QPalette::Active, QPalette::Base);
    QImage squares(2 * edge, 2 * edge, QImage::Format_RGB32);
    squares.fill(mixed(base, Qt::gray, 0.15));
    QPainter painter(&squares);
    for (const QPoint& corner : {QPoint(0, 0), QPoint(edge, edge)}) {
        painter.fillRect(QRect(corner, QSize(edge, edge)), mixed(base, Qt::gray, 0.5));
    }
    painter.end();
    return QBrush(squares);
}

}  // namespace quarlin

#include "ui/style/checkerboard.h"

#include "ui/style/colors.h"

#include <QImage>
#include <QPainter>
#include <QPalette>

namespace quarlin {

QBrush checkerboard(const QPalette& palette) {
    constexpr int edge = 8;
    const QColor window = palette.color(QPalette::Active, QPalette::Window);
    const QColor text = primaryColor(palette);
    QImage squares(2 * edge, 2 * edge, QImage::Format_RGB32);
    squares.fill(mixed(window, text, 0.06));
    QPainter painter(&squares);
    for (const QPoint& corner : {QPoint(edge, 0), QPoint(0, edge)}) {
        painter.fillRect(QRect(corner, QSize(edge, edge)), mixed(window, text, 0.2));
    }
    painter.end();
    return QBrush(squares);
}

}  // namespace quarlin

#pragma once

#include <QColor>
#include <QIcon>
#include <QRectF>
#include <QString>

class QPainter;

namespace quarlin {

/// Draws the line icon `name`, such as "square.and.arrow.up", in `color` into the largest square in the
/// middle of `rectangle`, sharp at the painter's own scale.
void paintSymbol(QPainter& painter, const QString& name, const QRectF& rectangle, const QColor& color);

/// The symbol as an icon named `name`, tinted from the application's palette whenever it is drawn: in the
/// primary color when active, on the accent color when selected, else in the secondary color.
QIcon symbolIcon(const QString& name);

}  // namespace quarlin

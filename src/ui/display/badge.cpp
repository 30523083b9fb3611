#include "ui/display/badge.h"

#include "ui/style/colors.h"
#include "ui/style/painting.h"

#include <QPainter>

namespace quarlin {

namespace {

constexpr int sidePadding = 6;
constexpr int verticalPadding = 2;
constexpr double fillOpacity = 0.35;

}  // namespace

Badge::Badge(const QString& text, QWidget* parent)
    : TextLabel(text, TextStyle::caption, TextWeight::secondary, parent) {
    setContentsMargins(sidePadding, verticalPadding, sidePadding, verticalPadding);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void Badge::paintEvent(QPaintEvent* event) {
    {
        QPainter painter(this);
        paintSurface(painter, rect(), height() / 2.0, withOpacity(tertiaryColor(palette()), fillOpacity),
                     Qt::transparent);
    }
    TextLabel::paintEvent(event);
}

}  // namespace quarlin

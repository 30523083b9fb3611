#include "ui/style/control_painting.h"

#include "ui/style/colors.h"
#include "ui/style/control_option.h"
#include "ui/style/metrics.h"
#include "ui/style/painting.h"
#include "ui/style/typography.h"

#include <QPainter>

namespace quarlin {

namespace {

namespace groupBox {
constexpr int titleGap = 6;
constexpr int sidePadding = 12;
/// Qt's own inset and the 4 that every box of the window adds to it.
constexpr int verticalPadding = 8 + 4;
}  // namespace groupBox

constexpr int fieldPadding = 6;

int titleHeight(const QStyleOptionGroupBox& option) {
    return option.text.isEmpty() ? 0 : QFontMetrics(font(TextStyle::headline)).height() + groupBox::titleGap;
}

}  // namespace

void paintField(QPainter& painter, const QStyleOptionFrame& option) {
    paintSurface(painter, option.rect, metrics::controlRadius,
                 option.palette.color(QPalette::Active, QPalette::Base),
                 withOpacity(secondaryColor(option.palette), 0.4));
    if (isSet(option, QStyle::State_HasFocus)) {
        paintRing(painter, option.palette, option.rect, metrics::controlRadius);
    }
}

QRect fieldContents(const QStyleOptionFrame& option) {
    return option.rect.adjusted(fieldPadding, 0, -fieldPadding, 0);
}

void paintGroupBox(QPainter& painter, const QStyleOptionGroupBox& option) {
    const QColor secondary = secondaryColor(option.palette);
    paintSurface(painter, groupBoxPart(option, QStyle::SC_GroupBoxFrame), metrics::cornerRadius,
                 withOpacity(secondary, 0.06), withOpacity(secondary, 0.14));
    painter.setFont(font(TextStyle::headline));
    painter.setPen(primaryColor(option.palette));
    painter.drawText(groupBoxPart(option, QStyle::SC_GroupBoxLabel), atStart(option), option.text);
}

QRect groupBoxPart(const QStyleOptionGroupBox& option, QStyle::SubControl part) {
    const int title = titleHeight(option);
    const QRect frame = option.rect.adjusted(0, title, 0, 0);
    switch (part) {
        case QStyle::SC_GroupBoxLabel:
            return {option.rect.left() + 2, option.rect.top(), option.rect.width() - 4,
                    qMax(0, title - groupBox::titleGap)};
        case QStyle::SC_GroupBoxFrame:
            return frame;
        case QStyle::SC_GroupBoxContents:
            return frame.adjusted(groupBox::sidePadding, groupBox::verticalPadding, -groupBox::sidePadding,
                                  -groupBox::verticalPadding);
        default:
            return {};
    }
}

}  // namespace quarlin

#include "ui/style/control_painting.h"

#include "ui/style/colors.h"
#include "ui/style/control_option.h"
#include "ui/style/metrics.h"
#include "ui/style/painting.h"
#include "ui/style/symbol.h"
#include "ui/style/typography.h"

#include <QPainter>

namespace quarlin {

namespace {

namespace button {
constexpr int sidePadding = 14;
constexpr int flatPadding = 9;
constexpr int symbolGap = 7;
constexpr int symbolOnlySize = 24;
}  // namespace button

namespace checkBox {
constexpr int edge = 16;
constexpr int radius = 4;
constexpr int titleGap = 8;
constexpr int ringRoom = 2;
}  // namespace checkBox

namespace tab {
constexpr int height = 38;
constexpr int sidePadding = 16;
constexpr int symbolGap = 7;
constexpr int markHeight = 3;
}  // namespace tab

bool isProminent(const QStyleOptionButton& option) {
    return isSet(option, QStyle::State_Enabled) &&
           option.features.testFlag(QStyleOptionButton::DefaultButton);
}

void paintButtonSurface(QPainter& painter, const QStyleOptionButton& option) {
    const QColor secondary = secondaryColor(option.palette);
    const bool enabled = isSet(option, QStyle::State_Enabled);
    const bool down = isSet(option, QStyle::State_Sunken);
    const bool hovered = isSet(option, QStyle::State_MouseOver);
    QColor fill = Qt::transparent;
    QColor border = Qt::transparent;
    if (isProminent(option)) {
        fill = accentColor(option.palette);
        fill = down ? mixed(fill, Qt::black, 0.18) : hovered ? mixed(fill, Qt::white, 0.1) : fill;
        border = withOpacity(Qt::black, 0.12);
    } else if (option.features.testFlag(QStyleOptionButton::Flat)) {
        fill = withOpacity(secondary, !enabled ? 0 : down ? 0.24 : hovered ? 0.12 : 0);
    } else {
        const QColor base = option.palette.color(QPalette::Active, QPalette::Button);
        const double strength = !enabled ? 0.03 : down ? 0.2 : hovered ? 0.05 : 0;
        fill = mixed(base, primaryColor(option.palette), strength);
        border = withOpacity(secondary, enabled ? 0.34 : 0.2);
    }
    paintSurface(painter, option.rect, metrics::controlRadius, fill, border);
}

/// How the symbol and the text of a button are tinted.
struct ButtonTint {
    QIcon::Mode symbol;
    QColor text;
};

ButtonTint tintOf(const QStyleOptionButton& option) {
    if (!isSet(option, QStyle::State_Enabled)) {
        return {QIcon::Disabled, disabledColor(option.palette)};
    }
    if (isProminent(option)) {
        return {QIcon::Selected, onAccentColor(option.palette)};
    }
    const bool isPointedAt = isSet(option, QStyle::State_Sunken) || isSet(option, QStyle::State_MouseOver);
    if (option.features.testFlag(QStyleOptionButton::Flat) && !isPointedAt) {
        return {QIcon::Normal, secondaryColor(option.palette)};
    }
    return {QIcon::Active, primaryColor(option.palette)};
}

/// The width of the symbol and of the gap behind it.
int symbolWidth(const QStyleOptionButton& option) {
    return option.icon.isNull()    ? 0
           : option.text.isEmpty() ? metrics::symbolSize
                                   : metrics::symbolSize + button::symbolGap;
}

}  // namespace

void paintButton(QPainter& painter, const QStyleOptionButton& option) {
    paintButtonSurface(painter, option);
    const ButtonTint tint = tintOf(option);
    const int labelWidth = option.fontMetrics.size(Qt::TextShowMnemonic, option.text).width();
    const int labelOffset = symbolWidth(option);
    const int left = (option.rect.width() - labelOffset - labelWidth) / 2;
    constexpr int symbolSize = metrics::symbolSize;
    const QRect symbolArea(left, (option.rect.height() - symbolSize) / 2, symbolSize, symbolSize);
    option.icon.paint(&painter, placed(option, symbolArea), Qt::AlignCenter, tint.symbol);
    const QRect labelArea(left + labelOffset, 0, labelWidth + 1, option.rect.height());
    painter.setPen(tint.text);
    painter.drawText(placed(option, labelArea), Qt::AlignCenter | Qt::TextShowMnemonic, option.text);
    paintFocusRing(painter, option, option.rect, metrics::controlRadius,
                   isProminent(option) ? RingGround::accent : RingGround::plain);
}

QSize buttonSize(const QStyleOptionButton& option) {
    if (option.text.isEmpty()) {
        return {button::symbolOnlySize, button::symbolOnlySize};
    }
    const QSize label = option.fontMetrics.size(Qt::TextShowMnemonic, option.text);
    const bool flat = option.features.testFlag(QStyleOptionButton::Flat);
    const int padding = flat ? button::flatPadding : button::sidePadding;
    return {2 * padding + symbolWidth(option) + label.width(),
            qMax(metrics::controlHeight, label.height() + 10)};
}

void paintCheckBox(QPainter& painter, const QStyleOptionButton& option) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    constexpr int edge = checkBox::edge;
    const int top = (option.rect.height() - edge) / 2;
    const QRectF box = placed(option, {0, top, edge, edge});
    const QColor secondary = secondaryColor(option.palette);
    const bool down = isSet(option, QStyle::State_Sunken);
    if (isSet(option, QStyle::State_On)) {
        const QColor fill = accentColor(option.palette);
        paintSurface(painter, box, checkBox::radius, down ? mixed(fill, Qt::black, 0.18) : fill,
                     withOpacity(Qt::black, 0.12));
        painter.setPen(QPen(onAccentColor(option.palette), 1.8, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        const QPointF mark[] = {box.topLeft() + QPointF(4, 8.3), box.topLeft() + QPointF(6.9, 11.2),
                                box.topLeft() + QPointF(12, 5.2)};
        painter.drawPolyline(mark, 3);
    } else {
        const QColor base = option.palette.color(QPalette::Active, QPalette::Base);
        paintSurface(painter, box, checkBox::radius, down ? mixed(base, secondary, 0.2) : base,
                     withOpacity(secondary, 0.5));
    }
    const bool enabled = isSet(option, QStyle::State_Enabled);
    painter.setPen(enabled ? primaryColor(option.palette) : disabledColor(option.palette));
    constexpr int titleLeft = edge + checkBox::titleGap;
    painter.drawText(placed(option, {titleLeft, 0, option.rect.width() - titleLeft, option.rect.height()}),
                     atStart(option) | Qt::TextShowMnemonic, option.text);
    paintFocusRing(painter, option, option.rect, checkBox::radius);
    painter.restore();
}

QSize checkBoxSize(const QStyleOptionButton& option) {
    const QSize label = option.fontMetrics.size(Qt::TextShowMnemonic, option.text);
    return {checkBox::edge + checkBox::titleGap + label.width() + checkBox::ringRoom,
            qMax(checkBox::edge + 2 * checkBox::ringRoom, label.height())};
}

void paintTab(QPainter& painter, const QStyleOptionTab& option) {
    const QRect area = option.rect;
    const bool current = isSet(option, QStyle::State_Selected);
    if (isSet(option, QStyle::State_MouseOver) && !current) {
        paintSurface(painter, QRectF(area).adjusted(3, 5, -3, -5), metrics::controlRadius,
                     withOpacity(secondaryColor(option.palette), 0.1), Qt::transparent);
    }
    const QColor color = current ? primaryColor(option.palette) : secondaryColor(option.palette);
    constexpr int size = metrics::symbolSize;
    const QRect symbolArea(tab::sidePadding, (area.height() - size) / 2, size, size);
    paintSymbol(painter, option.icon.name(), placed(option, symbolArea),
                current ? accentColor(option.palette) : color);
    constexpr int titleLeft = tab::sidePadding + size + tab::symbolGap;
    const QRect titleArea(titleLeft, 0, area.width() - titleLeft - tab::sidePadding + 1, area.height());
    painter.setFont(font(TextStyle::headline));
    painter.setPen(color);
    painter.drawText(placed(option, titleArea), Qt::AlignCenter | Qt::TextShowMnemonic, option.text);
    if (current) {
        const QRectF mark(area.left() + tab::sidePadding / 2.0, area.bottom() + 1 - tab::markHeight,
                          area.width() - tab::sidePadding, tab::markHeight);
        paintSurface(painter, mark, tab::markHeight / 2.0, accentColor(option.palette), Qt::transparent);
    }
    paintFocusRing(painter, option, QRectF(area).adjusted(3, 4, -3, -5), metrics::controlRadius);
}

QSize tabSize(const QStyleOptionTab& option) {
    const QFontMetrics titleMetrics(font(TextStyle::headline));
    const QSize label = titleMetrics.size(Qt::TextShowMnemonic, option.text);
    return {2 * tab::sidePadding + metrics::symbolSize + tab::symbolGap + label.width(),
            qMax(tab::height, label.height() + 18)};
}

}  // namespace quarlin

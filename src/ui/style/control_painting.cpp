#include "ui/style/control_painting.h"

#include "ui/style/colors.h"
#include "ui/style/metrics.h"
#include "ui/style/painting.h"
#include "ui/style/typography.h"

#include <QPainter>
#include <QStyleOption>

#include <algorithm>

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

namespace slider {
constexpr double knobSize = 16;
constexpr double grooveHeight = 4;
constexpr double ringRoom = (metrics::sliderHandleSize - knobSize) / 2;
}  // namespace slider

namespace scrollBar {
constexpr double leastHandleLength = 28;
constexpr double margin = 2;
constexpr double restingThickness = 6;
}  // namespace scrollBar

namespace groupBox {
constexpr int titleGap = 6;
constexpr int sidePadding = 12;
/// Qt's own inset and the 4 that every box of the window adds to it.
constexpr int verticalPadding = 8 + 4;
}  // namespace groupBox

constexpr int fieldPadding = 6;

bool isSet(const QStyleOption& option, QStyle::StateFlag flag) { return (option.state & flag) != 0; }

/// `part` of a control, given for a left-to-right layout, where it is in the layout of the control.
QRect placed(const QStyleOption& option, const QRect& part) {
    return QStyle::visualRect(option.direction, option.rect, part.translated(option.rect.topLeft()));
}

int atStart(const QStyleOption& option) {
    return static_cast<int>(QStyle::visualAlignment(option.direction, Qt::AlignLeft)) | Qt::AlignVCenter;
}

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

/// How far the middle of the knob is along the groove: 0...1 from the left.
double knobPosition(const QStyleOptionSlider& option) {
    const double span = std::max(1, option.maximum - option.minimum);
    const double part = (option.sliderPosition - option.minimum) / span;
    return option.upsideDown ? 1 - part : part;
}

/// Turns a rectangle of a vertical scroll bar into that of a horizontal one, if `option` is one.
template <typename Rectangle>
Rectangle turned(const QStyleOptionSlider& option, const Rectangle& area) {
    const Rectangle part = option.orientation == Qt::Vertical
                               ? area
                               : Rectangle(area.y(), area.x(), area.height(), area.width());
    return part.translated(option.rect.topLeft());
}

/// The handle of a vertical scroll bar, over its whole width.
QRectF scrollBarHandle(const QStyleOptionSlider& option) {
    const QRect bar = turned(option, QRect(QPoint(), option.rect.size()));
    using scrollBar::leastHandleLength;
    const double track = bar.height() - 2 * scrollBar::margin;
    const double span = std::max(1, option.maximum - option.minimum);
    const double length = std::clamp(track * option.pageStep / (span + option.pageStep), leastHandleLength,
                                     std::max(leastHandleLength, track));
    const double part = (option.sliderPosition - option.minimum) / span;
    const double top = scrollBar::margin + (track - length) * (option.upsideDown ? 1 - part : part);
    return {0.0, top, static_cast<double>(bar.width()), length};
}

int titleHeight(const QStyleOptionGroupBox& option) {
    return option.text.isEmpty() ? 0 : QFontMetrics(font(TextStyle::headline)).height() + groupBox::titleGap;
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
    paintFocusRing(painter, option, option.rect, metrics::controlRadius);
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

void paintSlider(QPainter& painter, const QStyleOptionSlider& option) {
    using slider::knobSize;
    using slider::ringRoom;
    const QRectF area = option.rect;
    const double center = area.left() + metrics::sliderHandleSize / 2.0 +
                          knobPosition(option) * (area.width() - metrics::sliderHandleSize);
    const double middle = area.center().y();
    const QRectF groove(area.left() + ringRoom, middle - slider::grooveHeight / 2,
                        area.width() - 2 * ringRoom, slider::grooveHeight);
    const QColor window = option.palette.color(QPalette::Active, QPalette::Window);
    paintSurface(painter, groove, slider::grooveHeight / 2,
                 mixed(window, secondaryColor(option.palette), 0.3), Qt::transparent);
    QRectF filled = groove;
    option.upsideDown ? filled.setLeft(center) : filled.setRight(center);
    paintSurface(painter, filled, slider::grooveHeight / 2, accentColor(option.palette), Qt::transparent);

    const QRectF knob(center - knobSize / 2, middle - knobSize / 2, knobSize, knobSize);
    const QColor face =
        isSet(option, QStyle::State_Sunken) ? mixed(Qt::white, Qt::black, 0.08) : QColor(Qt::white);
    paintSurface(painter, knob.translated(0, 0.75), knobSize / 2, withOpacity(Qt::black, 0.16),
                 Qt::transparent);
    paintSurface(painter, knob, knobSize / 2, face, withOpacity(Qt::black, 0.3));
    paintFocusRing(painter, option, knob.adjusted(-ringRoom, -ringRoom, ringRoom, ringRoom),
                   knobSize / 2 + ringRoom);
}

QRect sliderHandle(const QStyleOptionSlider& option) {
    constexpr int width = metrics::sliderHandleSize;
    const int left = qRound(knobPosition(option) * (option.rect.width() - width));
    return {option.rect.left() + left, option.rect.top(), width, option.rect.height()};
}

void paintScrollBar(QPainter& painter, const QStyleOptionSlider& option) {
    const bool held =
        isSet(option, QStyle::State_Sunken) && option.activeSubControls.testFlag(QStyle::SC_ScrollBarSlider);
    const bool hovered = isSet(option, QStyle::State_MouseOver);
    QRectF handle = scrollBarHandle(option);
    const double breadth =
        held || hovered ? handle.width() - 2 * scrollBar::margin : scrollBar::restingThickness;
    handle.setLeft(handle.right() - scrollBar::margin - breadth);
    handle.setWidth(breadth);
    const double strength = held ? 0.7 : hovered ? 0.55 : 0.35;
    paintSurface(painter, turned(option, handle), breadth / 2,
                 withOpacity(secondaryColor(option.palette), strength), Qt::transparent);
}

QRect scrollBarPart(const QStyleOptionSlider& option, QStyle::SubControl part) {
    const QRect bar = turned(option, QRect(QPoint(), option.rect.size()));
    const QRect handle = scrollBarHandle(option).toRect();
    const QRect before(0, 0, bar.width(), handle.top());
    const QRect behind(0, handle.top() + handle.height(), bar.width(),
                       bar.height() - handle.top() - handle.height());
    constexpr int margin = static_cast<int>(scrollBar::margin);
    switch (part) {
        case QStyle::SC_ScrollBarSlider:
            return turned(option, handle);
        case QStyle::SC_ScrollBarSubPage:
            return turned(option, option.upsideDown ? behind : before);
        case QStyle::SC_ScrollBarAddPage:
            return turned(option, option.upsideDown ? before : behind);
        case QStyle::SC_ScrollBarGroove:
            return turned(option, QRect(0, margin, bar.width(), bar.height() - 2 * margin));
        default:
            // There are no arrows at the ends.
            return {};
    }
}

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

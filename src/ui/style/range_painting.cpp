#include "ui/style/control_painting.h"

#include "ui/style/colors.h"
#include "ui/style/control_option.h"
#include "ui/style/metrics.h"
#include "ui/style/painting.h"

#include <QPainter>

#include <algorithm>

namespace quarlin {

namespace {

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

}  // namespace

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

}  // namespace quarlin

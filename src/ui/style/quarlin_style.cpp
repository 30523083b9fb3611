#include "ui/style/quarlin_style.h"

#include "ui/style/control_painting.h"
#include "ui/style/metrics.h"
#include "ui/style/painting.h"

#include <QStyleOption>

namespace quarlin {

using namespace Qt::StringLiterals;

namespace {

/// The option as its own type, where `matches` holds for the kind of control that is asked about.
template <typename Option>
const Option* optionIf(bool matches, const QStyleOption* option) {
    return matches ? qstyleoption_cast<const Option*>(option) : nullptr;
}

/// A text field with a frame of its own; the editors inside other controls have none.
const QStyleOptionFrame* framedField(bool matches, const QStyleOption* option) {
    const auto* field = optionIf<QStyleOptionFrame>(matches, option);
    return field != nullptr && field->lineWidth > 0 ? field : nullptr;
}

const QStyleOptionSlider* horizontalSlider(QStyle::ComplexControl control, const QStyleOption* option) {
    const auto* slider = optionIf<QStyleOptionSlider>(control == QStyle::CC_Slider, option);
    return slider != nullptr && slider->orientation == Qt::Horizontal ? slider : nullptr;
}

}  // namespace

QuarlinStyle::QuarlinStyle() : QProxyStyle(u"Fusion"_s) {}

void QuarlinStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                                 const QWidget* widget) const {
    if (const auto* field = framedField(element == PE_PanelLineEdit, option)) {
        paintField(*painter, *field);
    } else {
        QProxyStyle::drawPrimitive(element, option, painter, widget);
    }
}

void QuarlinStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                               const QWidget* widget) const {
    if (const auto* button = optionIf<QStyleOptionButton>(element == CE_PushButton, option)) {
        paintButton(*painter, *button);
    } else if (const auto* box = optionIf<QStyleOptionButton>(element == CE_CheckBox, option)) {
        paintCheckBox(*painter, *box);
    } else if (const auto* tab = optionIf<QStyleOptionTab>(element == CE_TabBarTab, option)) {
        paintTab(*painter, *tab);
    } else if (element == CE_FocusFrame) {
        paintRing(*painter, option->palette, option->rect, metrics::controlRadius);
    } else {
        QProxyStyle::drawControl(element, option, painter, widget);
    }
}

void QuarlinStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                                      QPainter* painter, const QWidget* widget) const {
    if (const auto* slider = horizontalSlider(control, option)) {
        paintSlider(*painter, *slider);
    } else if (const auto* bar = optionIf<QStyleOptionSlider>(control == CC_ScrollBar, option)) {
        paintScrollBar(*painter, *bar);
    } else if (const auto* box = optionIf<QStyleOptionGroupBox>(control == CC_GroupBox, option)) {
        paintGroupBox(*painter, *box);
    } else {
        QProxyStyle::drawComplexControl(control, option, painter, widget);
    }
}

QRect QuarlinStyle::subElementRect(SubElement element, const QStyleOption* option,
                                   const QWidget* widget) const {
    if (element == SE_CheckBoxClickRect) {
        return option->rect;
    }
    if (const auto* field = framedField(element == SE_LineEditContents, option)) {
        return fieldContents(*field);
    }
    return QProxyStyle::subElementRect(element, option, widget);
}

QRect QuarlinStyle::subControlRect(ComplexControl control, const QStyleOptionComplex* option, SubControl part,
                                   const QWidget* widget) const {
    if (const auto* slider = horizontalSlider(control, option)) {
        return part == SC_SliderHandle ? sliderHandle(*slider) : slider->rect;
    }
    if (const auto* bar = optionIf<QStyleOptionSlider>(control == CC_ScrollBar, option)) {
        return scrollBarPart(*bar, part);
    }
    if (const auto* box = optionIf<QStyleOptionGroupBox>(control == CC_GroupBox, option)) {
        return groupBoxPart(*box, part);
    }
    return QProxyStyle::subControlRect(control, option, part, widget);
}

QSize QuarlinStyle::sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& contents,
                                     const QWidget* widget) const {
    if (const auto* button = optionIf<QStyleOptionButton>(type == CT_PushButton, option)) {
        return buttonSize(*button);
    }
    if (const auto* box = optionIf<QStyleOptionButton>(type == CT_CheckBox, option)) {
        return checkBoxSize(*box);
    }
    if (const auto* tab = optionIf<QStyleOptionTab>(type == CT_TabBarTab, option)) {
        return tabSize(*tab);
    }
    switch (type) {
        case CT_GroupBox:
            return contents;
        case CT_LineEdit:
            return QProxyStyle::sizeFromContents(type, option, contents, widget)
                .expandedTo({0, metrics::controlHeight});
        default:
            return QProxyStyle::sizeFromContents(type, option, contents, widget);
    }
}

int QuarlinStyle::pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const {
    switch (metric) {
        case PM_SliderThickness:
        case PM_SliderLength:
            return metrics::sliderHandleSize;
        case PM_ScrollBarExtent:
            return metrics::scrollBarThickness;
        case PM_FocusFrameHMargin:
        case PM_FocusFrameVMargin:
            return metrics::focusFrameMargin;
        default:
            return QProxyStyle::pixelMetric(metric, option, widget);
    }
}

int QuarlinStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                            QStyleHintReturn* answer) const {
    switch (hint) {
        // A click acts and leaves the keyboard where it is.
        case SH_Button_FocusPolicy:
            return Qt::TabFocus;
        // Only the left mouse button moves sliders and scroll bars.
        case SH_Slider_AbsoluteSetButtons:
        case SH_ScrollBar_MiddleClickAbsolutePosition:
        case SH_ScrollBar_ContextMenu:
            return 0;
        default:
            return QProxyStyle::styleHint(hint, option, widget, answer);
    }
}

}  // namespace quarlin

#include "ui/controls/slider_row.h"

#include "model/formatters.h"
#include "ui/accessibility/accessible_role.h"
#include "ui/controls/slider.h"
#include "ui/display/text_label.h"

#include <QHBoxLayout>

#include <utility>

namespace quarlin {

namespace {

constexpr int titleWidth = 76;
constexpr int leastSliderWidth = 60;
constexpr int valueWidth = 44;
constexpr int spacing = 10;

}  // namespace

SliderRow::SliderRow(const QString& title, const ValueRange& range, std::function<QString(double)> format,
                     QWidget* parent)
    : QWidget(parent) {
    // Qt would name the row after the box that it is in.
    presentAs(*this, QAccessible::Client, title);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(spacing);

    auto* titleLabel = new TextLabel(title, TextStyle::body);
    titleLabel->setFixedWidth(textFrame(titleWidth));
    row->addWidget(titleLabel);

    m_slider = new Slider(range, std::move(format));
    m_slider->setAccessibleName(title);
    m_slider->setMinimumWidth(leastSliderWidth);
    row->addWidget(m_slider);

    m_valueLabel = new TextLabel({}, TextStyle::callout, TextWeight::secondary);
    m_valueLabel->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    m_valueLabel->setFixedWidth(textFrame(valueWidth));
    row->addWidget(m_valueLabel);

    connect(m_slider, &Slider::numberEdited, this, [this](double value) {
        showValue();
        Q_EMIT valueEdited(value);
    });
    showValue();
}

SliderRow* SliderRow::percentage(const QString& title, QWidget* parent) {
    return new SliderRow(title, {}, &Formatters::percentLabel, parent);
}

void SliderRow::setValue(double value) {
    m_slider->showNumber(value);
    showValue();
}

QString SliderRow::valueLabel() const { return m_valueLabel->text(); }

void SliderRow::showValue() { m_valueLabel->setText(m_slider->numberText()); }

}  // namespace quarlin

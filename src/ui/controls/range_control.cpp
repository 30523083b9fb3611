#include "ui/controls/range_control.h"

#include "ui/controls/range_control_accessible.h"

#include <QAccessible>
#include <QKeyEvent>

#include <algorithm>
#include <utility>

namespace quarlin {

RangeControl::RangeControl(const ValueRange& range, std::function<QString(double)> describe, QWidget* parent)
    : QWidget(parent), m_range(range), m_value(range.minimum), m_describe(std::move(describe)) {
    installRangeControlAccessibility();
    setFocusPolicy(Qt::StrongFocus);
}

void RangeControl::setValue(double value) { change(std::clamp(value, m_range.minimum, m_range.maximum)); }

void RangeControl::edit(double value) {
    const double before = m_value;
    setValue(value);
    if (m_value != before) {
        Q_EMIT valueEdited(m_value);
    }
}

void RangeControl::change(double value) {
    if (value == m_value) {
        return;
    }
    m_value = value;
    update();
    QAccessibleValueChangeEvent event(this, m_value);
    QAccessible::updateAccessibility(&event);
}

void RangeControl::keyPressEvent(QKeyEvent* event) {
    const double forward = layoutDirection() == Qt::LeftToRight ? m_range.step : -m_range.step;
    switch (event->key()) {
        case Qt::Key_Up:
            return edit(m_value + m_range.step);
        case Qt::Key_Down:
            return edit(m_value - m_range.step);
        case Qt::Key_Right:
            return edit(m_value + forward);
        case Qt::Key_Left:
            return edit(m_value - forward);
        case Qt::Key_PageUp:
            return edit(m_value + m_range.page);
        case Qt::Key_PageDown:
            return edit(m_value - m_range.page);
        case Qt::Key_Home:
            return edit(m_range.minimum);
        case Qt::Key_End:
            return edit(m_range.maximum);
        default:
            QWidget::keyPressEvent(event);
    }
}

}  // namespace quarlin

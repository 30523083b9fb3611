#include "ui/controls/slider.h"

#include "ui/controls/range_accessible.h"

#include <QMouseEvent>
#include <QSignalBlocker>
#include <QStyleOptionSlider>

#include <utility>

namespace quarlin {

namespace {

int ticks(double number) { return qRound(number * Slider::ticksPerUnit); }

}  // namespace

Slider::Slider(const ValueRange& range, std::function<QString(double)> describe, QWidget* parent)
    : QSlider(Qt::Horizontal, parent), m_range(range), m_describe(std::move(describe)) {
    installRangeAccessibility();
    setFocusPolicy(Qt::StrongFocus);
    setRange(ticks(range.minimum), ticks(range.maximum));
    setSingleStep(ticks(range.step));
    setPageStep(ticks(range.page));
    connect(this, &QSlider::valueChanged, this, [this] { Q_EMIT numberEdited(number()); });
}

void Slider::showNumber(double number) {
    const QSignalBlocker quietly(this);
    setValue(ticks(number));
}

QRect Slider::handle() const {
    QStyleOptionSlider option;
    initStyleOption(&option);
    return style()->subControlRect(QStyle::CC_Slider, &option, QStyle::SC_SliderHandle, this);
}

void Slider::mousePressEvent(QMouseEvent* event) {
    const QPoint position = event->position().toPoint();
    if (event->button() == Qt::LeftButton && !handle().contains(position)) {
        // The knob jumps to the pointer, which then holds it.
        const int room = width() - handle().width();
        const bool mirrored = layoutDirection() == Qt::RightToLeft;
        setValue(QStyle::sliderValueFromPosition(minimum(), maximum(), position.x() - handle().width() / 2,
                                                 room, mirrored));
    }
    QSlider::mousePressEvent(event);
}

}  // namespace quarlin

#include "ui/controls/slider.h"

#include "ui/style/colors.h"
#include "ui/style/painting.h"

#include <QMouseEvent>
#include <QPainter>

#include <cmath>
#include <utility>

namespace quarlin {

namespace {

constexpr double knobSize = 16;
constexpr double grooveHeight = 4;
/// Room for the focus ring around the knob.
constexpr double margin = 3;

}  // namespace

Slider::Slider(const ValueRange& range, std::function<QString(double)> describe, QWidget* parent)
    : RangeControl(range, std::move(describe), parent) {
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

double Slider::knobCenter() const {
    const double length = width() - knobSize - 2 * margin;
    const double part = (value() - range().minimum) / (range().maximum - range().minimum);
    const double distance = margin + knobSize / 2 + part * length;
    return layoutDirection() == Qt::LeftToRight ? distance : width() - distance;
}

void Slider::moveKnobTo(double x) {
    const double length = width() - knobSize - 2 * margin;
    const double distance = (layoutDirection() == Qt::LeftToRight ? x : width() - x) - margin - knobSize / 2;
    edit(range().minimum + distance / length * (range().maximum - range().minimum));
}

void Slider::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) {
        return event->ignore();
    }
    m_held = true;
    m_grip = event->position().x() - knobCenter();
    if (std::abs(m_grip) > knobSize / 2) {
        m_grip = 0;
        moveKnobTo(event->position().x());
    }
    update();
}

void Slider::mouseMoveEvent(QMouseEvent* event) {
    if (m_held) {
        moveKnobTo(event->position().x() - m_grip);
    }
}

void Slider::mouseReleaseEvent(QMouseEvent*) {
    m_held = false;
    update();
}

void Slider::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QColor secondary = secondaryColor(palette());
    const double middle = height() / 2.0;
    const QRectF groove(margin, middle - grooveHeight / 2, width() - 2 * margin, grooveHeight);
    const QColor track = mixed(palette().color(QPalette::Active, QPalette::Window), secondary, 0.3);
    paintSurface(painter, groove, grooveHeight / 2, track, Qt::transparent);
    QRectF filled = groove;
    if (layoutDirection() == Qt::LeftToRight) {
        filled.setRight(knobCenter());
    } else {
        filled.setLeft(knobCenter());
    }
    paintSurface(painter, filled, grooveHeight / 2, accentColor(palette()), Qt::transparent);

    const QRectF knob(knobCenter() - knobSize / 2, middle - knobSize / 2, knobSize, knobSize);
    const QColor face = m_held ? mixed(Qt::white, Qt::black, 0.08) : QColor(Qt::white);
    paintSurface(painter, knob.translated(0, 0.75), knobSize / 2, withOpacity(Qt::black, 0.16),
                 Qt::transparent);
    paintSurface(painter, knob, knobSize / 2, face, withOpacity(Qt::black, 0.3));
    paintFocusRing(painter, *this, knob.adjusted(-margin, -margin, margin, margin), knobSize / 2 + margin);
}

}  // namespace quarlin

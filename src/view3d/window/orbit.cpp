#include "view3d/window/orbit.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QWheelEvent>
#include <QWidget>

#include <algorithm>
#include <cmath>

namespace quarlin {

namespace {

/// Degrees for a pixel of dragging, and for a press of an arrow key.
constexpr double degreesPerPixel = 0.4;
constexpr double degreesPerKey = 5;
/// The part of the distance that is left after a notch of the wheel.
constexpr double distancePerNotch = 0.9;
/// What a wheel reports for a notch, in eighths of a degree.
constexpr double notch = 120;

double within(const SettingRange<double>& range, double value) {
    return std::clamp(value, range.lowest, range.highest);
}

}  // namespace

Orbit::Orbit(QWidget* widget, SceneLook& look) : QObject(widget), m_look(look) {
    widget->installEventFilter(this);
}

bool Orbit::eventFilter(QObject*, QEvent* event) {
    switch (event->type()) {
        case QEvent::MouseButtonPress:
            m_pointer = static_cast<QMouseEvent*>(event)->position();
            return true;
        case QEvent::MouseButtonRelease:
        case QEvent::MouseButtonDblClick:
            return true;
        case QEvent::MouseMove:
            drag(*static_cast<QMouseEvent*>(event));
            return true;
        case QEvent::Wheel:
            zoom(static_cast<QWheelEvent*>(event)->angleDelta().y() / notch);
            return true;
        case QEvent::KeyPress:
            return press(*static_cast<QKeyEvent*>(event));
        default:
            return false;
    }
}

void Orbit::drag(const QMouseEvent& event) {
    const QPointF way = event.position() - m_pointer;
    m_pointer = event.position();
    if (event.buttons() != Qt::NoButton) {
        const bool isLamp = event.buttons() == Qt::RightButton || event.modifiers() == Qt::ShiftModifier;
        turn(isLamp, way.x() * degreesPerPixel, -way.y() * degreesPerPixel);
    }
}

bool Orbit::press(const QKeyEvent& event) {
    const bool isLamp = event.modifiers() == Qt::ShiftModifier;
    switch (event.key()) {
        case Qt::Key_Left:
            turn(isLamp, -degreesPerKey, 0);
            return true;
        case Qt::Key_Right:
            turn(isLamp, degreesPerKey, 0);
            return true;
        case Qt::Key_Up:
            turn(isLamp, 0, degreesPerKey);
            return true;
        case Qt::Key_Down:
            turn(isLamp, 0, -degreesPerKey);
            return true;
        case Qt::Key_Plus:
        case Qt::Key_Equal:
            zoom(1);
            return true;
        case Qt::Key_Minus:
            zoom(-1);
            return true;
        case Qt::Key_Home: {
            const SceneLook first;
            m_look.side = first.side;
            m_look.elevation = first.elevation;
            m_look.distance = first.distance;
            Q_EMIT moved();
            return true;
        }
        default:
            return false;
    }
}

void Orbit::turn(bool isLamp, double right, double up) {
    if (isLamp) {
        m_look.lampSide = wrappedAngle(m_look.lampSide + right);
        m_look.lampHeight = within(lampHeightRange, m_look.lampHeight + up);
    } else {
        // The solid follows the pointer, so the camera goes the other way.
        m_look.side = wrappedAngle(m_look.side - right);
        m_look.elevation = within(elevationRange, m_look.elevation - up);
    }
    Q_EMIT moved();
}

void Orbit::zoom(double steps) {
    m_look.distance = within(distanceRange, m_look.distance * std::pow(distancePerNotch, steps));
    Q_EMIT moved();
}

}  // namespace quarlin

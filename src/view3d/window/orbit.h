#pragma once

#include "view3d/scene/scene_look.h"

#include <QObject>
#include <QPointF>

class QKeyEvent;
class QMouseEvent;

namespace quarlin {

/// Moves the camera around the solid, and the lamp, as the user drags, wheels and types on a widget.
///
/// - Dragging and the arrow keys orbit; with Shift, or the right button, they move the lamp.
/// - The wheel, plus and minus zoom; Home returns to the first view.
class Orbit : public QObject {
    Q_OBJECT

public:
    /// Listens to `widget`, its parent; `look` is what it changes.
    Orbit(QWidget* widget, SceneLook& look);

Q_SIGNALS:
    /// The user has changed the look.
    void moved();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void drag(const QMouseEvent& event);
    /// Whether the key means something here.
    bool press(const QKeyEvent& event);
    /// Moves the camera or the lamp by angles in degrees, to the right and upwards as seen on the screen.
    void turn(bool isLamp, double right, double up);
    /// Brings the camera nearer by `steps` notches of a wheel.
    void zoom(double steps);

    SceneLook& m_look;
    QPointF m_pointer;
};

}  // namespace quarlin

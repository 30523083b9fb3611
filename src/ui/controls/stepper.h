#pragma once

#include "ui/controls/range_control.h"

#include <QRect>

namespace quarlin {

/// Two arrows that move a whole number up and down by one.
class Stepper : public RangeControl {
    Q_OBJECT

public:
    Stepper(int minimum, int maximum, QWidget* parent = nullptr);

    /// The arrow that adds one.
    QRect upperHalf() const { return {0, 0, width(), height() / 2}; }
    /// The arrow that takes one away.
    QRect lowerHalf() const { return {0, height() / 2, width(), height() - height() / 2}; }

    QSize sizeHint() const override { return {20, 26}; }
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override { mousePressEvent(event); }
    void mouseReleaseEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void paintArrow(QPainter& painter, const QRect& half, double direction, bool usable) const;

    /// The half that is being pressed: 1 up, -1 down, 0 none.
    int m_pressed = 0;
};

}  // namespace quarlin

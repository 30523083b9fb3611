#pragma once

#include "ui/controls/range_control.h"

namespace quarlin {

/// A slider without steps: the pointer sets any value of the range.
class Slider : public RangeControl {
    Q_OBJECT

public:
    Slider(const ValueRange& range, std::function<QString(double)> describe, QWidget* parent = nullptr);

    /// Where the middle of the knob is for the present value, in the slider's own coordinates.
    double knobCenter() const;

    QSize sizeHint() const override { return {160, 22}; }
    QSize minimumSizeHint() const override { return {60, 22}; }

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void moveKnobTo(double x);

    /// From the middle of the knob to where it was taken hold of, while it is held.
    double m_grip = 0;
    bool m_held = false;
};

}  // namespace quarlin

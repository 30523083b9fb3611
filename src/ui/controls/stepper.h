#pragma once

#include <QAbstractSlider>
#include <QRect>
#include <QWheelEvent>

namespace quarlin {

/// Two arrows that move a whole number up and down by one. Qt's spin box comes with a text field, which has
/// no place here; the keyboard is that of its sliders.
class Stepper : public QAbstractSlider {
    Q_OBJECT

public:
    Stepper(int minimum, int maximum, QWidget* parent = nullptr);

    /// Shows `value`, or the bound next to it, without announcing it as the user's.
    void showValue(int value);

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
    /// The panel around the stepper scrolls, not the stepper.
    void wheelEvent(QWheelEvent* event) override { event->ignore(); }
    void paintEvent(QPaintEvent* event) override;

private:
    void paintArrow(QPainter& painter, const QRect& half, double direction, bool usable) const;

    /// The half that is being pressed: 1 up, -1 down, 0 none.
    int m_pressed = 0;
};

}  // namespace quarlin

#pragma once

#include <QAbstractSlider>

class QScrollBar;

namespace quarlin {

/// A slim scroll bar that lies over the padding of what it scrolls and takes no room of its own. It shows
/// while there is something to scroll.
class OverlayScrollBar : public QAbstractSlider {
    Q_OBJECT

public:
    /// The width of the bar.
    static constexpr int thickness = 12;

    /// Moves, and moves with, `scrollBar`, which itself stays hidden. Lies over `parent`.
    OverlayScrollBar(QScrollBar& scrollBar, QWidget* parent);

    /// The part of the bar that is dragged.
    QRectF handle() const;

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    /// From the top of the handle to where it was taken hold of.
    double m_grip = 0;
};

}  // namespace quarlin

#pragma once

#include <QWidget>

namespace quarlin {

/// The bar at the top of the window: a strip in the bar's color with `leading` at its start and
/// `trailing` at its end.
class BarBackground : public QWidget {
    Q_OBJECT

public:
    BarBackground(QWidget* leading, QWidget* trailing, QWidget* parent = nullptr);

protected:
    void paintEvent(QPaintEvent* event) override;
};

}  // namespace quarlin

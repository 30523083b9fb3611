#pragma once

#include <QWidget>

namespace quarlin {

/// A line, one pixel thick, between two parts of the window.
class Separator : public QWidget {
    Q_OBJECT

public:
    explicit Separator(Qt::Orientation orientation, QWidget* parent = nullptr);

    QSize sizeHint() const override { return {1, 1}; }
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;
};

}  // namespace quarlin

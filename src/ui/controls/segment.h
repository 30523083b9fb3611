#pragma once

#include <QRadioButton>

namespace quarlin {

/// One choice of a segmented picker.
class Segment : public QRadioButton {
    Q_OBJECT

public:
    explicit Segment(const QString& title, QWidget* parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    bool hitButton(const QPoint& position) const override { return rect().contains(position); }
    void paintEvent(QPaintEvent* event) override;
};

}  // namespace quarlin

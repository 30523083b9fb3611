#pragma once

#include <QCheckBox>

namespace quarlin {

/// A check box with its title.
class Toggle : public QCheckBox {
    Q_OBJECT

public:
    explicit Toggle(const QString& title, QWidget* parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    bool hitButton(const QPoint& position) const override { return rect().contains(position); }
    void paintEvent(QPaintEvent* event) override;
};

}  // namespace quarlin

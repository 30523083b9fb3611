#pragma once

#include <QAbstractButton>

namespace quarlin {

/// A text in the style of captions that opens something. A text that does not fit is shortened in the middle.
class LinkButton : public QAbstractButton {
    Q_OBJECT

public:
    explicit LinkButton(QWidget* parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
};

}  // namespace quarlin

#pragma once

#include <QWidget>

namespace quarlin {

/// A small dot that says quietly that something next to it wants attention; its tooltip says what.
class StatusDot : public QWidget {
    Q_OBJECT

public:
    explicit StatusDot(const QString& meaning, QWidget* parent = nullptr);

    QSize sizeHint() const override { return {8, 8}; }
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;
};

}  // namespace quarlin

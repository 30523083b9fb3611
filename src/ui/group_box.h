#pragma once

#include <QGroupBox>

class QVBoxLayout;

namespace quarlin {

/// A box around controls that belong together, with its title above if it has one.
class GroupBox : public QGroupBox {
    Q_OBJECT

public:
    /// Rows of the box are `spacing` apart.
    GroupBox(const QString& title, int spacing, QWidget* parent = nullptr);

    /// Where the rows go, top to bottom.
    QVBoxLayout* rows() const { return m_rows; }

    QSize minimumSizeHint() const override { return QWidget::minimumSizeHint(); }

protected:
    bool event(QEvent* event) override;
    // The style's idea of a group box's frame, which the toolkit computes in these, is none of ours.
    void resizeEvent(QResizeEvent* event) override { QWidget::resizeEvent(event); }
    void changeEvent(QEvent* event) override { QWidget::changeEvent(event); }
    void paintEvent(QPaintEvent* event) override;

private:
    int titleHeight() const;
    void arrange();

    QVBoxLayout* m_rows;
};

}  // namespace quarlin

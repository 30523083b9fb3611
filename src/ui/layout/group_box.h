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

    // The toolkit's group box computes the frame that the style would draw and makes room for it in these.
    // Here the frame is painted and the room made without the style, so they are those of any other widget.
    // NOLINTBEGIN(bugprone-parent-virtual-call): passing over the group box is the point.
    QSize minimumSizeHint() const override { return QWidget::minimumSizeHint(); }

protected:
    void resizeEvent(QResizeEvent* event) override { QWidget::resizeEvent(event); }
    void changeEvent(QEvent* event) override { QWidget::changeEvent(event); }
    // NOLINTEND(bugprone-parent-virtual-call)
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    int titleHeight() const;
    void arrange();

    QVBoxLayout* m_rows;
};

}  // namespace quarlin

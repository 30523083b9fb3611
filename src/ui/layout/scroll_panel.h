#pragma once

#include <QScrollArea>

class QVBoxLayout;

namespace quarlin {

/// A column of content that scrolls up and down, and is always as wide as the view of it. Its scroll bar,
/// which is visible while there is something to scroll, is over the margin at the end of the rows, so that
/// they are as wide with it as without.
class ScrollPanel : public QScrollArea {
    Q_OBJECT

public:
    /// Rows are `spacing` apart; `margins` are around all of them.
    ScrollPanel(int spacing, const QMargins& margins, QWidget* parent = nullptr);

    /// Where the content goes, top to bottom.
    QVBoxLayout* rows() const { return m_rows; }

    QSize minimumSizeHint() const override;

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    QVBoxLayout* m_rows;
};

}  // namespace quarlin

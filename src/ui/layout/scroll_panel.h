#pragma once

#include <QScrollArea>

class QVBoxLayout;

namespace quarlin {

/// A column of content that scrolls up and down, and is always as wide as the view of it. Its scroll bar,
/// which is visible while there is something to scroll, is over the margin at the end of the rows, so that
/// they are as wide with it as without. A panel that is scrolled to its end stays there when its rows grow.
class ScrollPanel : public QScrollArea {
    Q_OBJECT

public:
    /// Rows are `spacing` apart; `margins` are around all of them.
    ScrollPanel(int spacing, const QMargins& margins, QWidget* parent = nullptr);

    /// Where the content goes, top to bottom.
    QVBoxLayout* rows() const { return m_rows; }

    /// Scrolls to the end of the rows, once pending changes of their sizes are done.
    void showEnd();

    /// Scrolls as little as possible to make `area` of `row`, a widget in the rows, visible.
    void showArea(const QWidget& row, const QRect& area);

    QSize minimumSizeHint() const override;

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void keepEnd();

    QVBoxLayout* m_rows;
    /// Whether there is something to scroll, and it is scrolled to its end.
    bool m_isAtEnd = false;
};

}  // namespace quarlin

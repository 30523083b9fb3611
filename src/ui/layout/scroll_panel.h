#pragma once

#include <QScrollArea>

class QScrollBar;
class QVBoxLayout;

namespace quarlin {

/// A column of content that scrolls up and down, and is always as wide as the view of it. Its scroll bar is
/// over the margin at the end of the rows, so that they are as wide with it as without.
class ScrollPanel : public QScrollArea {
    Q_OBJECT

public:
    /// Rows are `spacing` apart; `margins` are around all of them.
    ScrollPanel(int spacing, const QMargins& margins, QWidget* parent = nullptr);

    /// Where the content goes, top to bottom.
    QVBoxLayout* rows() const { return m_rows; }

    /// The scroll bar that the user sees. It is visible while there is something to scroll.
    QScrollBar* overlayBar() const { return m_overlayBar; }

    QSize minimumSizeHint() const override;

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    QScrollBar* makeOverlayBar();

    QVBoxLayout* m_rows;
    QScrollBar* m_overlayBar;
};

}  // namespace quarlin

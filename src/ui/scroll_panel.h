#pragma once

#include <QScrollArea>

class QVBoxLayout;

namespace quarlin {

/// A column of content that scrolls up and down, and is always as wide as the view of it.
class ScrollPanel : public QScrollArea {
    Q_OBJECT

public:
    /// Rows are `spacing` apart; `margins` lie around all of them.
    ScrollPanel(int spacing, const QMargins& margins, QWidget* parent = nullptr);

    /// Where the content goes, top to bottom.
    QVBoxLayout* rows() const { return m_rows; }

    QSize minimumSizeHint() const override;

private:
    QVBoxLayout* m_rows;
};

}  // namespace quarlin

#pragma once

#include <QSplitter>

namespace quarlin {

/// The three resizable columns of a tool: inputs, settings and previews. They start at their ideal widths;
/// when the window grows, most of the room goes to the previews.
class ColumnSplitter : public QSplitter {
    Q_OBJECT

public:
    ColumnSplitter(QWidget* inputs, QWidget* settings, QWidget* previews, QWidget* parent = nullptr);

protected:
    QSplitterHandle* createHandle() override;
    void resizeEvent(QResizeEvent* event) override;

private:
    /// The widths that a new width of the window is shared out from: the ideal ones, or those the user has
    /// set.
    QList<int> m_widths;
};

}  // namespace quarlin

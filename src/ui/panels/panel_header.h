#pragma once

#include <QWidget>

class QHBoxLayout;

namespace quarlin {

/// The heading of a panel, which stays in place while the panel scrolls. What belongs at its end is added to
/// it.
class PanelHeader : public QWidget {
    Q_OBJECT

public:
    explicit PanelHeader(const QString& title, QWidget* parent = nullptr);

    /// Puts `widget` at the end of the row. A widget that can grow takes up to the room beside the title.
    void addAtEnd(QWidget* widget, int stretch = 0);

private:
    QHBoxLayout* m_row;
};

}  // namespace quarlin

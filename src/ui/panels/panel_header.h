#pragma once

#include <QWidget>

class QHBoxLayout;

namespace quarlin {

/// The heading of a panel, which stays in place while the panel scrolls.
class PanelHeader : public QWidget {
    Q_OBJECT

public:
    explicit PanelHeader(const QString& title, QWidget* parent = nullptr);

    /// Puts `widget` next to the title.
    void addToTitle(QWidget* widget);

    /// Puts `widget` at the end of the row. A widget that can grow takes at most the room next to the title.
    void addAtEnd(QWidget* widget, int stretch = 0);

private:
    QHBoxLayout* m_row;
    QHBoxLayout* m_title;
};

}  // namespace quarlin

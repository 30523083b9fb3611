#pragma once

#include <QList>
#include <QToolBar>

namespace quarlin {

class Button;

/// The toolbar of the window: one group of buttons per tool, of which one shows at a time.
class ToolBar : public QToolBar {
    Q_OBJECT

public:
    explicit ToolBar(QWidget* parent = nullptr);

    /// Adds `buttons` as the next tool's group.
    void addGroup(const QList<Button*>& buttons);

    /// Shows the group at `index` and no other.
    void showGroup(qsizetype index);

protected:
    /// The widget around the toolbar paints the background.
    void paintEvent(QPaintEvent*) override {}

private:
    /// What shows and hides each group.
    QList<QAction*> m_groups;
};

}  // namespace quarlin

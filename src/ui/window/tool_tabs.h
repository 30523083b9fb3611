#pragma once

#include <QTabWidget>

namespace quarlin {

class ToolTabBar;

/// The tab control that switches between the tools, with a line under its tabs.
class ToolTabs : public QTabWidget {
    Q_OBJECT

public:
    explicit ToolTabs(QWidget* parent = nullptr);

    /// Adds the page `workspace`, shown by a tab with `symbol` and `title`.
    void addTool(QWidget* workspace, const QString& title, const QString& symbol);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    ToolTabBar* m_bar;
};

}  // namespace quarlin

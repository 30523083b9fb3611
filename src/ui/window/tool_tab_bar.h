#pragma once

#include <QTabBar>

namespace quarlin {

/// Tabs with a symbol and a title; a bar in the accent color is under the current one.
class ToolTabBar : public QTabBar {
    Q_OBJECT

public:
    explicit ToolTabBar(QWidget* parent = nullptr);

    /// Adds to the tab at `index` the symbol that it shows before its title.
    void setTabSymbol(int index, const QString& symbol);

protected:
    QSize tabSizeHint(int index) const override;
    QSize minimumTabSizeHint(int index) const override { return tabSizeHint(index); }
    void paintEvent(QPaintEvent* event) override;

private:
    void paintTab(QPainter& painter, int index) const;
};

}  // namespace quarlin

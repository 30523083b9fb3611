#pragma once

#include <QTabWidget>

namespace quarlin {

/// The tab control that switches between the tools, with a line under its tabs.
class ToolTabs : public QTabWidget {
    Q_OBJECT

public:
    explicit ToolTabs(QWidget* parent = nullptr);

protected:
    void paintEvent(QPaintEvent* event) override;
};

}  // namespace quarlin

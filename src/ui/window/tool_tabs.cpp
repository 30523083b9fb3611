#include "ui/window/tool_tabs.h"

#include "ui/style/colors.h"
#include "ui/window/tool_tab_bar.h"

#include <QPainter>

namespace quarlin {

ToolTabs::ToolTabs(QWidget* parent) : QTabWidget(parent), m_bar(new ToolTabBar) {
    setTabBar(m_bar);
    setDocumentMode(true);
    setUsesScrollButtons(false);
    m_bar->setDrawBase(false);
}

void ToolTabs::addTool(QWidget* workspace, const QString& title, const QString& symbol) {
    const int index = addTab(workspace, title);
    m_bar->setTabSymbol(index, symbol);
}

void ToolTabs::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(0, m_bar->geometry().bottom(), width(), 1, separatorColor(palette()));
}

}  // namespace quarlin

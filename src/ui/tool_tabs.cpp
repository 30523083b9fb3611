#include "tool_tabs.h"

#include "tool_tab_bar.h"

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

}  // namespace quarlin

#include "ui/window/tool_tabs.h"

#include "ui/style/colors.h"

#include <QPainter>
#include <QTabBar>

namespace quarlin {

using namespace Qt::StringLiterals;

ToolTabs::ToolTabs(QWidget* parent) : QTabWidget(parent) {
    setDocumentMode(true);
    setUsesScrollButtons(false);
    tabBar()->setDrawBase(false);
    tabBar()->setExpanding(false);
    // The tab under the pointer is drawn differently.
    tabBar()->setAttribute(Qt::WA_Hover);
    tabBar()->setAccessibleName(u"Tools"_s);
    // Read before the pages.
    tabBar()->lower();
}

void ToolTabs::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(0, tabBar()->geometry().bottom(), width(), 1, separatorColor(palette()));
}

}  // namespace quarlin

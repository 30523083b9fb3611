#include "ui/window/tool_bar.h"

#include "ui/controls/button.h"
#include "ui/style/metrics.h"

#include <QAction>
#include <QHBoxLayout>

namespace quarlin {

using namespace Qt::StringLiterals;

namespace {

constexpr int buttonSpacing = 4;

}  // namespace

ToolBar::ToolBar(QWidget* parent) : QToolBar(parent) {
    setMovable(false);
    setContextMenuPolicy(Qt::PreventContextMenu);
    setAccessibleName(u"Toolbar"_s);
    layout()->setContentsMargins(0, 0, metrics::standardPadding / 2, 0);
}

void ToolBar::addGroup(const QList<Button*>& buttons) {
    // A toolbar shows and enables its widgets through actions of its own. It holds the group rather than the
    // buttons, so that it does not change which buttons are enabled.
    auto* group = new QWidget;
    auto* row = new QHBoxLayout(group);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(buttonSpacing);
    for (Button* button : buttons) {
        row->addWidget(button);
    }
    m_groups.append(addWidget(group));
}

void ToolBar::showGroup(qsizetype index) {
    for (qsizetype group = 0; group < m_groups.size(); ++group) {
        m_groups[group]->setVisible(group == index);
    }
}

}  // namespace quarlin

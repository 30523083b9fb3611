#include "tool_bar.h"

#include "button.h"
#include "metrics.h"

#include <QAction>
#include <QLayout>

#include <utility>

namespace quarlin {

namespace {

constexpr int buttonSpacing = 4;

}  // namespace

ToolBar::ToolBar(QWidget* parent) : QToolBar(parent) {
    setMovable(false);
    setContextMenuPolicy(Qt::PreventContextMenu);
    setAccessibleName(QStringLiteral("Toolbar"));
    layout()->setContentsMargins(0, 0, metrics::standardPadding - buttonSpacing, 0);
    layout()->setSpacing(buttonSpacing);
}

void ToolBar::addGroup(const QList<Button*>& buttons) {
    QList<QAction*> group;
    for (Button* button : buttons) {
        group.append(addWidget(button));
    }
    m_groups.append(group);
}

void ToolBar::showGroup(qsizetype index) {
    for (qsizetype group = 0; group < m_groups.size(); ++group) {
        for (QAction* button : std::as_const(m_groups[group])) {
            button->setVisible(group == index);
        }
    }
}

}  // namespace quarlin

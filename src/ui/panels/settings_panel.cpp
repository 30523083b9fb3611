#include "ui/panels/settings_panel.h"

#include "ui/accessibility/accessible_role.h"
#include "ui/controls/button.h"
#include "ui/display/text_label.h"
#include "ui/panels/tool_actions.h"
#include "ui/style/metrics.h"

#include <QHBoxLayout>

namespace quarlin {

using namespace Qt::StringLiterals;

namespace {

constexpr int groupSpacing = 16;
constexpr int buttonSpacing = 8;
constexpr int labelSpacing = 10;

constexpr QMargins panelMargins(metrics::standardPadding, metrics::standardPadding, metrics::standardPadding,
                                metrics::standardPadding);

}  // namespace

SettingsPanel::SettingsPanel(const QString& heading, QWidget* parent)
    : ScrollPanel(groupSpacing, panelMargins, parent) {
    presentAs(*this, QAccessible::Pane, heading);
    auto* title = new QHBoxLayout;
    // At the height of the headings of the other columns, which have buttons in their rows.
    title->addStrut(metrics::headerRowHeight);
    title->addWidget(new TextLabel(heading, TextStyle::title3));
    rows()->addLayout(title);
}

GroupBox* SettingsPanel::addGroup(const QString& title, int spacing) {
    auto* group = new GroupBox(title, spacing);
    rows()->addWidget(group);
    return group;
}

void SettingsPanel::addLabeled(GroupBox& group, const QString& label, QWidget* picker) {
    auto* row = new QHBoxLayout;
    row->setSpacing(labelSpacing);
    row->addWidget(new TextLabel(label, TextStyle::body));
    row->addWidget(picker, 1);
    group.rows()->addLayout(row);
}

void SettingsPanel::addActions(GroupBox& group, ToolActions& actions) {
    auto* row = new QHBoxLayout;
    row->setSpacing(buttonSpacing);
    Button* preview = actions.preview.makePanelButton(ButtonStyle::bordered);
    preview->setObjectName(u"preview"_s);
    row->addWidget(preview);
    Button* exportSet = actions.exportSet.makePanelButton(ButtonStyle::prominent);
    exportSet->setObjectName(u"export"_s);
    row->addWidget(exportSet);
    row->addStretch();
    group.rows()->addLayout(row);
}

void SettingsPanel::closeColumn() { rows()->addStretch(); }

}  // namespace quarlin

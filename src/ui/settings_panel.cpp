#include "settings_panel.h"

#include "button.h"
#include "metrics.h"
#include "text_label.h"

#include <QHBoxLayout>

namespace quarlin {

namespace {

constexpr int groupSpacing = 16;
constexpr int buttonSpacing = 8;
constexpr int labelSpacing = 10;

constexpr QMargins panelMargins(metrics::standardPadding, metrics::standardPadding, metrics::standardPadding,
                                metrics::standardPadding);

}  // namespace

SettingsPanel::SettingsPanel(const QString& heading, QWidget* parent)
    : ScrollPanel(groupSpacing, panelMargins, parent) {
    auto* title = new TextLabel(heading, TextStyle::title3);
    // As high as the headings of the columns beside it, which have buttons in their rows.
    title->setMinimumHeight(metrics::headerRowHeight);
    rows()->addWidget(title);
}

GroupBox* SettingsPanel::addGroup(const QString& title, int spacing) {
    auto* group = new GroupBox(title, spacing);
    rows()->addWidget(group);
    return group;
}

void SettingsPanel::addLabelled(GroupBox& group, const QString& label, QWidget* picker) {
    auto* row = new QHBoxLayout;
    row->setSpacing(labelSpacing);
    row->addWidget(new TextLabel(label, TextStyle::body));
    row->addWidget(picker, 1);
    group.rows()->addLayout(row);
}

void SettingsPanel::addActions(GroupBox& group) {
    auto* row = new QHBoxLayout;
    row->setSpacing(buttonSpacing);
    m_preview = new Button(ButtonStyle::bordered, QStringLiteral("eye"), QStringLiteral("Pre&view"));
    m_preview->setObjectName(QStringLiteral("preview"));
    row->addWidget(m_preview);
    m_export =
        new Button(ButtonStyle::prominent, QStringLiteral("square.and.arrow.up"), QStringLiteral("E&xport"));
    m_export->setObjectName(QStringLiteral("export"));
    row->addWidget(m_export);
    row->addStretch();
    group.rows()->addLayout(row);
}

void SettingsPanel::closeColumn() { rows()->addStretch(); }

}  // namespace quarlin

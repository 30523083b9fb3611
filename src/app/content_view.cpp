#include "app/content_view.h"

#include "ui/controls/button.h"
#include "ui/generator/generator_workspace.h"
#include "ui/layout/separator.h"
#include "ui/material/material_workspace.h"
#include "ui/panels/preview_panel.h"
#include "ui/panels/texture_card.h"
#include "ui/panels/tool_actions.h"
#include "ui/style/symbol.h"
#include "ui/window/bar_background.h"
#include "ui/window/brand_header.h"
#include "ui/window/tool_bar.h"
#include "ui/window/tool_tabs.h"

#include <QApplication>
#include <QVBoxLayout>

#include <utility>

namespace quarlin {

ContentView::ContentView(MaterialStore& materialStore, ToolActions& materialActions,
                         NormalGeneratorStore& normalStore, ToolActions& normalActions, QWidget* parent)
    : QWidget(parent),
      m_header(new BrandHeader(StudioTool::pbr)),
      m_toolBar(new ToolBar),
      m_tabs(new ToolTabs) {
    auto* stack = new QVBoxLayout(this);
    stack->setContentsMargins(0, 0, 0, 0);
    stack->setSpacing(0);
    stack->addWidget(new BarBackground(m_header, m_toolBar));
    stack->addWidget(new Separator(Qt::Horizontal));
    stack->addWidget(m_tabs, 1);

    addTool(StudioTool::pbr, makeMaterialWorkspace(materialStore, materialActions), materialActions);
    addTool(StudioTool::normalGenerator, makeGeneratorWorkspace(normalStore, normalActions), normalActions);
    connect(m_tabs, &ToolTabs::currentChanged, this, &ContentView::showTool);
    showTool();
}

StudioTool ContentView::selectedTool() const { return static_cast<StudioTool>(m_tabs->currentIndex()); }

PreviewPanel& ContentView::previewPanel(StudioTool tool) const {
    return *m_tabs->widget(static_cast<int>(tool))->findChild<PreviewPanel*>();
}

void ContentView::addTool(StudioTool tool, QWidget* workspace, ToolActions& actions) {
    m_tabs->addTab(workspace, symbolIcon(systemImage(tool)), title(tool));
    m_toolBar->addGroup({actions.preview.makeToolBarButton(), actions.exportSet.makeToolBarButton()});
}

void ContentView::showTool() {
    m_header->setTool(selectedTool());
    m_toolBar->showGroup(m_tabs->currentIndex());
    keepKeyboardInTool();
    Q_EMIT toolChanged();
}

void ContentView::keepKeyboardInTool() {
    QWidget* workspace = m_tabs->currentWidget();
    const bool wasShownBefore = std::exchange(m_shownBefore[selectedTool()], true);
    const QWidget* focused = QApplication::focusWidget();
    const bool isLost = focused == nullptr || !focused->isVisible();
    const bool isInTool = focused != nullptr && workspace->isAncestorOf(focused);
    // Qt gives the keyboard to where it was in this workspace, which may be hidden by now, or else to the
    // first control, which clears the inputs.
    if (window()->isVisible() && (isLost || (isInTool && !wasShownBefore))) {
        workspace->findChild<TextureCard*>()->takeFocus();
    }
}

}  // namespace quarlin

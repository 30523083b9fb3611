#include "app/content_view.h"

#include "stores/material_store.h"
#include "stores/normal_generator_store.h"
#include "ui/controls/button.h"
#include "ui/layout/bar_background.h"
#include "ui/layout/separator.h"
#include "ui/panels/brand_header.h"
#include "ui/panels/store_observer.h"
#include "ui/panels/tool_bar.h"
#include "ui/panels/tool_tabs.h"
#include "ui/panels/workspaces.h"

#include <QVBoxLayout>

namespace quarlin {

using namespace Qt::StringLiterals;

namespace {

Button* makeButton(const QString& text, const QString& symbol, const QString& help) {
    auto* button = new Button(ButtonStyle::borderless, symbol, text);
    button->setToolTip(help);
    return button;
}

Button* previewButton(const QString& help) {
    return makeButton(u"Build Preview"_s, u"arrow.triangle.2.circlepath"_s, help);
}

Button* exportButton(const QString& help) { return makeButton(u"Export"_s, u"square.and.arrow.up"_s, help); }

}  // namespace

ContentView::ContentView(MaterialStore& materialStore, NormalGeneratorStore& normalStore, QWidget* parent)
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

    Button* buildMaterial = previewButton(u"Build PBR Preview"_s);
    connect(buildMaterial, &Button::clicked, &materialStore, &MaterialStore::buildPreview);
    Button* exportMaterial = exportButton(u"Export PBR Set"_s);
    connect(exportMaterial, &Button::clicked, &materialStore, &MaterialStore::exportMaterialSet);
    new StoreObserver(
        materialStore,
        [=, &materialStore] {
            buildMaterial->setEnabled(materialStore.hasAnyTexture());
            exportMaterial->setEnabled(materialStore.canExport());
        },
        this);

    Button* buildMaps = previewButton(u"Build Generated Map Preview"_s);
    connect(buildMaps, &Button::clicked, &normalStore, &NormalGeneratorStore::buildPreview);
    Button* exportMaps = exportButton(u"Export Generated Map Set"_s);
    connect(exportMaps, &Button::clicked, &normalStore, &NormalGeneratorStore::exportSet);
    new StoreObserver(
        normalStore,
        [=, &normalStore] {
            // Here, unlike in the other tool, both hang on the source alone.
            buildMaps->setEnabled(normalStore.canExport());
            exportMaps->setEnabled(normalStore.canExport());
        },
        this);

    addTool(StudioTool::pbr, makeMaterialWorkspace(materialStore), {buildMaterial, exportMaterial});
    addTool(StudioTool::normalGenerator, makeGeneratorWorkspace(normalStore), {buildMaps, exportMaps});
    connect(m_tabs, &ToolTabs::currentChanged, this, &ContentView::showTool);
    showTool();
}

StudioTool ContentView::selectedTool() const { return static_cast<StudioTool>(m_tabs->currentIndex()); }

void ContentView::addTool(StudioTool tool, QWidget* workspace, const QList<Button*>& buttons) {
    m_tabs->addTool(workspace, title(tool), systemImage(tool));
    m_toolBar->addGroup(buttons);
}

void ContentView::showTool() {
    m_header->setTool(selectedTool());
    m_toolBar->showGroup(m_tabs->currentIndex());
}

}  // namespace quarlin

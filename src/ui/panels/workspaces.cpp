#include "ui/panels/workspaces.h"

#include "ui/layout/column_splitter.h"
#include "ui/panels/generator_input_panel.h"
#include "ui/panels/generator_settings_panel.h"
#include "ui/panels/material_settings_panel.h"
#include "ui/panels/texture_sidebar.h"
#include "ui/panels/tool_preview_panel.h"

namespace quarlin {

using namespace Qt::StringLiterals;

QWidget* makeMaterialWorkspace(MaterialStore& store) {
    return new ColumnSplitter(new TextureSidebar(store), new MaterialSettingsPanel(store),
                              makePreviewPanel(store, u"photo.on.rectangle.angled"_s));
}

QWidget* makeGeneratorWorkspace(NormalGeneratorStore& store) {
    return new ColumnSplitter(new GeneratorInputPanel(store), new GeneratorSettingsPanel(store),
                              makePreviewPanel(store, u"mountain.2"_s));
}

}  // namespace quarlin

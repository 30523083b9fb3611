#include "workspaces.h"

#include "column_splitter.h"
#include "generator_input_panel.h"
#include "generator_settings_panel.h"
#include "material_settings_panel.h"
#include "texture_sidebar.h"
#include "tool_preview_panel.h"

namespace quarlin {

QWidget* makeMaterialWorkspace(MaterialStore& store) {
    return new ColumnSplitter(new TextureSidebar(store), new MaterialSettingsPanel(store),
                              makePreviewPanel(store, QStringLiteral("photo.on.rectangle.angled")));
}

QWidget* makeGeneratorWorkspace(NormalGeneratorStore& store) {
    return new ColumnSplitter(new GeneratorInputPanel(store), new GeneratorSettingsPanel(store),
                              makePreviewPanel(store, QStringLiteral("mountain.2")));
}

}  // namespace quarlin

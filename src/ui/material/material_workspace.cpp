#include "ui/material/material_workspace.h"

#include "ui/layout/column_splitter.h"
#include "ui/material/material_settings_panel.h"
#include "ui/material/texture_sidebar.h"
#include "ui/panels/tool_preview_panel.h"

namespace quarlin {

using namespace Qt::StringLiterals;

QWidget* makeMaterialWorkspace(MaterialStore& store, ToolActions& actions) {
    return new ColumnSplitter(new TextureSidebar(store, actions), new MaterialSettingsPanel(store, actions),
                              makePreviewPanel(store, u"photo.on.rectangle.angled"_s));
}

}  // namespace quarlin

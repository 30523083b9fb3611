#include "ui/generator/generator_workspace.h"

#include "ui/generator/generator_input_panel.h"
#include "ui/generator/generator_settings_panel.h"
#include "ui/layout/column_splitter.h"
#include "ui/panels/tool_preview_panel.h"

namespace quarlin {

using namespace Qt::StringLiterals;

QWidget* makeGeneratorWorkspace(NormalGeneratorStore& store, ToolActions& actions) {
    return new ColumnSplitter(new GeneratorInputPanel(store, actions),
                              new GeneratorSettingsPanel(store, actions),
                              makePreviewPanel(store, u"mountain.2"_s));
}

}  // namespace quarlin

#pragma once

#include "model/studio_tool.h"

#include <QWidget>

#include <map>

namespace quarlin {

class BrandHeader;
class MaterialStore;
class NormalGeneratorStore;
class PreviewPanel;
class ToolActions;
class ToolBar;
class ToolTabs;

/// What fills the window: the brand header with the toolbar of the selected tool, a line, and the tools as
/// tabs.
class ContentView : public QWidget {
    Q_OBJECT

public:
    /// The stores and their actions must outlive the view.
    ContentView(MaterialStore& materialStore, ToolActions& materialActions, NormalGeneratorStore& normalStore,
                ToolActions& normalActions, QWidget* parent = nullptr);

    StudioTool selectedTool() const;

    /// The panel that shows the previews of `tool`.
    PreviewPanel& previewPanel(StudioTool tool) const;

Q_SIGNALS:
    /// Another tool is shown.
    void toolChanged();

private:
    void addTool(StudioTool tool, QWidget* workspace, ToolActions& actions);
    void showTool();
    void keepKeyboardInTool();

    BrandHeader* m_header;
    ToolBar* m_toolBar;
    ToolTabs* m_tabs;
    std::map<StudioTool, bool> m_shownBefore;
};

}  // namespace quarlin

#pragma once

#include "model/studio_tool.h"

#include <QList>
#include <QWidget>

namespace quarlin {

class BrandHeader;
class Button;
class MaterialStore;
class NormalGeneratorStore;
class ToolBar;
class ToolTabs;

/// What fills the window: the brand header with the toolbar of the selected tool, a line, and the tools as
/// tabs.
class ContentView : public QWidget {
    Q_OBJECT

public:
    /// The stores must outlive the view.
    ContentView(MaterialStore& materialStore, NormalGeneratorStore& normalStore, QWidget* parent = nullptr);

    StudioTool selectedTool() const;

private:
    void addTool(StudioTool tool, QWidget* workspace, const QList<Button*>& buttons);
    void showTool();

    BrandHeader* m_header;
    ToolBar* m_toolBar;
    ToolTabs* m_tabs;
};

}  // namespace quarlin

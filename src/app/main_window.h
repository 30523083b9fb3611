#pragma once

#include "ui/panels/tool_actions.h"
#include "ui/viewer/map_viewer.h"
#include "view3d/window/material_view.h"

#include <QMainWindow>

namespace quarlin {

class ContentView;
class MaterialStore;
class NormalGeneratorStore;

/// The program's one window, with its menus.
class MainWindow : public QMainWindow {
    Q_OBJECT

public:
    /// The stores must outlive the window.
    MainWindow(MaterialStore& materialStore, NormalGeneratorStore& normalStore);

    ContentView* content() const { return m_content; }
    const MapViewer& viewer() const { return m_viewer; }

private:
    void addFileMenu();
    /// A menu with the actions of one tool, which acts on that tool whichever one is shown.
    void addToolMenu(const QString& title, ToolActions& actions);
    void addViewMenu();
    void addHelpMenu();
    void showAbout();

    ToolActions m_materialActions;
    ToolActions m_normalActions;
    ContentView* m_content;
    MapViewer m_viewer;
    MaterialView m_materialView{this};
};

}  // namespace quarlin

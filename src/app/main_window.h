#pragma once

#include "ui/panels/tool_actions.h"
#include "ui/viewer/map_viewer.h"
#include "view3d/window/material_view.h"

#include <QList>
#include <QMainWindow>
#include <QUrl>

#include <memory>

namespace quarlin {

class ContentView;
class HelpWindow;
class MaterialStore;
class NormalGeneratorStore;

/// The program's one window, with its menus.
class MainWindow : public QMainWindow {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(MainWindow)

public:
    /// The stores must outlive the window.
    MainWindow(MaterialStore& materialStore, NormalGeneratorStore& normalStore);
    ~MainWindow() override;

    ContentView* content() const { return m_content; }
    const MapViewer& viewer() const { return m_viewer; }
    /// A null pointer before the help is opened.
    const HelpWindow* help() const { return m_help.get(); }

    /// Loads files and folders into the tool that is shown.
    void loadFiles(const QList<QUrl>& files);

private:
    void addFileMenu();
    /// A menu with the actions of one tool, which acts on that tool whichever one is shown.
    void addToolMenu(const QString& title, ToolActions& actions);
    void addViewMenu();
    void addHelpMenu();
    void showAbout();
    void showHelp();

    MaterialStore& m_materialStore;
    NormalGeneratorStore& m_normalStore;
    ToolActions m_materialActions;
    ToolActions m_normalActions;
    ContentView* m_content;
    MapViewer m_viewer;
    std::unique_ptr<HelpWindow> m_help;
    MaterialView m_materialView{this};
};

}  // namespace quarlin

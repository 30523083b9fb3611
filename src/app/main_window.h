#pragma once

#include "ui/panels/tool_actions.h"

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

private:
    void addFileMenu();
    /// A menu with the actions of one tool, which acts on that tool whichever one is shown.
    void addToolMenu(const QString& title, ToolActions& actions);
    void addHelpMenu();
    void showAbout();

    ToolActions m_materialActions;
    ToolActions m_normalActions;
    ContentView* m_content;
};

}  // namespace quarlin

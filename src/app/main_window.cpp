#include "app/main_window.h"

#include "app/content_view.h"
#include "app/edit_menu.h"
#include "stores/material_store.h"
#include "stores/normal_generator_store.h"
#include "ui/help/help_window.h"
#include "ui/window/busy_pointer.h"
#include "ui/window/window_drop.h"
#include "view3d/maps/material_maps.h"

#include <QAction>
#include <QApplication>
#include <QMenuBar>
#include <QMessageBox>

namespace quarlin {

using namespace Qt::StringLiterals;

namespace {

constexpr QSize minimumContentSize(1120, 720);

}  // namespace

MainWindow::MainWindow(MaterialStore& materialStore, NormalGeneratorStore& normalStore)
    : m_materialStore(materialStore),
      m_normalStore(normalStore),
      m_materialActions(materialStore),
      m_normalActions(normalStore),
      m_content(new ContentView(materialStore, m_materialActions, normalStore, m_normalActions)),
      m_viewer(materialStore, normalStore) {
    setWindowTitle(u"VOREK TECH Quarlin"_s);
    m_content->setMinimumSize(minimumContentSize);
    setCentralWidget(m_content);
    m_viewer.openTilesOf(m_content->previewPanel(StudioTool::pbr), m_viewer.materialMaps());
    m_viewer.openTilesOf(m_content->previewPanel(StudioTool::normalGenerator), m_viewer.generatorMaps());
    addFileMenu();
    menuBar()->addMenu(new EditMenu(this));
    addToolMenu(u"&Material"_s, m_materialActions);
    addToolMenu(u"Map &Generator"_s, m_normalActions);
    addViewMenu();
    addHelpMenu();
    connect(new WindowDrop(this), &WindowDrop::dropped, this, &MainWindow::loadFiles);
    // Read before the content.
    menuBar()->lower();
    new BusyPointer(materialStore, this);
    new BusyPointer(normalStore, this);

    const auto showIn3D = [this, materials = toolMaterial(materialStore), maps = toolMaterial(normalStore)] {
        m_materialView.setMaterial(m_content->selectedTool() == StudioTool::pbr ? materials : maps);
    };
    connect(m_content, &ContentView::toolChanged, this, showIn3D);
    showIn3D();
}

MainWindow::~MainWindow() = default;

void MainWindow::loadFiles(const QList<QUrl>& files) {
    switch (m_content->selectedTool()) {
        case StudioTool::pbr:
            return m_materialStore.importFiles(files);
        case StudioTool::normalGenerator:
            return m_normalStore.importFiles(files);
    }
}

void MainWindow::addFileMenu() {
    QMenu* menu = menuBar()->addMenu(u"&File"_s);
    // The export of the tool that is shown.
    menu->addAction(&m_materialActions.openExport);
    menu->addAction(&m_normalActions.openExport);
    const auto showTool = [this] {
        const bool isMaterial = m_content->selectedTool() == StudioTool::pbr;
        m_materialActions.openExport.setVisible(isMaterial);
        m_normalActions.openExport.setVisible(!isMaterial);
    };
    connect(m_content, &ContentView::toolChanged, this, showTool);
    showTool();
    menu->addSeparator();
    QAction* quit = menu->addAction(u"&Quit"_s);
    quit->setShortcuts({QKeySequence(Qt::CTRL | Qt::Key_Q)});
    quit->setMenuRole(QAction::QuitRole);
    connect(quit, &QAction::triggered, qApp, &QApplication::closeAllWindows);
}

void MainWindow::addToolMenu(const QString& title, ToolActions& actions) {
    QMenu* menu = menuBar()->addMenu(title);
    menu->addAction(&actions.exportSet);
    menu->addAction(&actions.preview);
    menu->addSeparator();
    menu->addAction(&actions.reset);
}

void MainWindow::addViewMenu() {
    QMenu* menu = menuBar()->addMenu(u"&View"_s);
    menu->addAction(&m_materialView.action());
}

void MainWindow::addHelpMenu() {
    QMenu* menu = menuBar()->addMenu(u"&Help"_s);
    QAction* help = menu->addAction(u"Quarlin &Help"_s);
    help->setShortcut(QKeySequence::HelpContents);
    connect(help, &QAction::triggered, this, &MainWindow::showHelp);
    QAction* about = menu->addAction(u"&About Quarlin"_s);
    about->setMenuRole(QAction::AboutRole);
    connect(about, &QAction::triggered, this, &MainWindow::showAbout);
}

void MainWindow::showHelp() {
    if (!m_help) {
        m_help = std::make_unique<HelpWindow>();
        // The program ends with its main window.
        m_help->setAttribute(Qt::WA_QuitOnClose, false);
    }
    m_help->open();
}

void MainWindow::showAbout() {
    auto* box = new QMessageBox(QMessageBox::NoIcon, u"About Quarlin"_s,
                                u"VOREK TECH Quarlin %1"_s.arg(QStringLiteral(QUARLIN_VERSION)),
                                QMessageBox::Close, this);
    box->setIconPixmap(windowIcon().pixmap(64));
    box->setInformativeText(QStringLiteral(QUARLIN_DESCRIPTION "."));
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->open();
}

}  // namespace quarlin

#include "main_window.h"

#include "busy_pointer.h"
#include "content_view.h"
#include "edit_menu.h"
#include "material_store.h"
#include "normal_generator_store.h"
#include "store_observer.h"

#include <QAction>
#include <QApplication>
#include <QMenuBar>
#include <QMessageBox>

namespace quarlin {

namespace {

constexpr QSize minimumContentSize(1120, 720);

}  // namespace

MainWindow::MainWindow(MaterialStore& materialStore, NormalGeneratorStore& normalStore)
    : m_content(new ContentView(materialStore, normalStore)) {
    setWindowTitle(QStringLiteral("VOREK TECH Quarlin"));
    setMinimumSize(minimumContentSize);
    setCentralWidget(m_content);
    addFileMenu();
    menuBar()->addMenu(new EditMenu(this));
    addMaterialMenu(materialStore);
    addHelpMenu();
    new BusyPointer(materialStore, this);
    new BusyPointer(normalStore, this);
}

void MainWindow::addFileMenu() {
    QMenu* menu = menuBar()->addMenu(QStringLiteral("&File"));
    QAction* quit = menu->addAction(QStringLiteral("&Quit"));
    quit->setShortcuts({QKeySequence(Qt::CTRL | Qt::Key_Q)});
    quit->setMenuRole(QAction::QuitRole);
    connect(quit, &QAction::triggered, qApp, &QApplication::closeAllWindows);
}

void MainWindow::addMaterialMenu(MaterialStore& store) {
    QMenu* menu = menuBar()->addMenu(QStringLiteral("&Material"));
    const auto add = [&](const QString& text, const QKeySequence& shortcut, auto operation) {
        QAction* action = menu->addAction(text);
        action->setShortcut(shortcut);
        connect(action, &QAction::triggered, &store, operation);
        return action;
    };
    QAction* exportSet =
        add(QStringLiteral("&Export PBR Set..."), Qt::CTRL | Qt::Key_E, &MaterialStore::exportMaterialSet);
    QAction* build =
        add(QStringLiteral("&Build Preview"), Qt::CTRL | Qt::Key_R, &MaterialStore::buildPreview);
    menu->addSeparator();
    QAction* reset =
        add(QStringLiteral("&Reset Inputs"), Qt::CTRL | Qt::Key_Backspace, &MaterialStore::reset);
    new StoreObserver(
        store,
        [=, &store] {
            exportSet->setEnabled(store.canExport());
            build->setEnabled(store.hasAnyTexture());
            reset->setEnabled(store.hasAnyTexture());
        },
        this);
}

void MainWindow::addHelpMenu() {
    QMenu* menu = menuBar()->addMenu(QStringLiteral("&Help"));
    QAction* about = menu->addAction(QStringLiteral("&About Quarlin"));
    about->setMenuRole(QAction::AboutRole);
    connect(about, &QAction::triggered, this, &MainWindow::showAbout);
}

void MainWindow::showAbout() {
    auto* box = new QMessageBox(QMessageBox::NoIcon, QStringLiteral("About Quarlin"),
                                QStringLiteral("VOREK TECH Quarlin %1").arg(QStringLiteral(QUARLIN_VERSION)),
                                QMessageBox::Close, this);
    box->setIconPixmap(windowIcon().pixmap(64));
    box->setInformativeText(QStringLiteral(QUARLIN_DESCRIPTION "."));
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->open();
}

}  // namespace quarlin

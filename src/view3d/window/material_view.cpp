#include "view3d/window/material_view.h"

#include "view3d/window/material_window.h"
#include "view3d/window/scene_module.h"

#include <QMessageBox>

#include <utility>

namespace quarlin {

using namespace Qt::StringLiterals;

MaterialView::MaterialView(QWidget* mainWindow, QString moduleFile)
    : QObject(mainWindow), m_mainWindow(mainWindow), m_moduleFile(std::move(moduleFile)) {
    m_action.setText(u"&Material in 3D"_s);
    m_action.setShortcut(Qt::CTRL | Qt::Key_3);
    connect(&m_action, &QAction::triggered, this, &MaterialView::open);
}

MaterialView::~MaterialView() { delete m_window; }

MaterialWindow* MaterialView::window() const { return m_window; }

void MaterialView::setMaterial(const ToolMaterial& material) {
    m_material.emplace(material);
    if (m_window) {
        m_window->setMaterial(material);
    }
}

void MaterialView::open() {
    if (!m_window) {
        auto [scene, problem] = loadScene(m_moduleFile.isEmpty() ? sceneModuleFile() : m_moduleFile);
        if (!scene) {
            auto* box = new QMessageBox(QMessageBox::Information, u"Material in 3D"_s, problem,
                                        QMessageBox::Close, m_mainWindow);
            box->setAttribute(Qt::WA_DeleteOnClose);
            box->open();
            return;
        }
        m_window = new MaterialWindow(std::move(scene), m_look, m_details);
        m_window->setAttribute(Qt::WA_DeleteOnClose);
        if (m_material) {
            m_window->setMaterial(*m_material);
        }
    }
    m_window->show();
    m_window->raise();
    m_window->activateWindow();
}

}  // namespace quarlin

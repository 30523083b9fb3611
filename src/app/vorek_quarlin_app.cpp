#include "app/vorek_quarlin_app.h"

#include <QFileInfo>

namespace quarlin {

VorekQuarlinApp::VorekQuarlinApp()
    : m_materialStore(m_chooser), m_normalStore(m_chooser), m_window(m_materialStore, m_normalStore) {}

void VorekQuarlinApp::openFiles(const QStringList& paths) {
    QList<QUrl> files;
    for (const QString& path : paths) {
        files += QUrl::fromLocalFile(QFileInfo(path).absoluteFilePath());
    }
    if (!files.isEmpty()) {
        QMetaObject::invokeMethod(
            &m_window, [this, files] { m_window.loadFiles(files); }, Qt::QueuedConnection);
    }
}

void VorekQuarlinApp::start() {
    m_window.show();
    m_window.raise();
    m_window.activateWindow();
}

}  // namespace quarlin

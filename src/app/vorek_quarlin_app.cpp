#include "app/vorek_quarlin_app.h"

namespace quarlin {

VorekQuarlinApp::VorekQuarlinApp()
    : m_materialStore(m_chooser), m_normalStore(m_chooser), m_window(m_materialStore, m_normalStore) {}

void VorekQuarlinApp::start() {
    m_window.show();
    m_window.raise();
    m_window.activateWindow();
}

}  // namespace quarlin

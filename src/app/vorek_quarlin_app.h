#pragma once

#include "app/desktop_chooser.h"
#include "app/main_window.h"
#include "stores/material_store.h"
#include "stores/normal_generator_store.h"

#include <QStringList>

namespace quarlin {

/// The running program: the stores of both tools, kept from start to end, and the window that shows them.
/// Nothing is saved between runs.
class VorekQuarlinApp {
public:
    /// Needs a `QApplication`.
    VorekQuarlinApp();

    /// Shows the window in front of all others.
    void start();

    /// Loads the files and folders at `paths`, which may be relative, once the window is shown.
    void openFiles(const QStringList& paths);

    MainWindow& window() { return m_window; }

private:
    DesktopChooser m_chooser;
    MaterialStore m_materialStore;
    NormalGeneratorStore m_normalStore;
    MainWindow m_window;
};

}  // namespace quarlin

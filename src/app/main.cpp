#include "application_icon.h"
#include "band_memory.h"
#include "desktop_color_scheme.h"
#include "vorek_quarlin_app.h"

#include <QApplication>

int main(int argc, char** argv) {
    quarlin::keepBandMemory();
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("quarlin"));
    QApplication::setApplicationVersion(QStringLiteral(QUARLIN_VERSION));
    QApplication::setDesktopFileName(QStringLiteral("quarlin"));
    QApplication::setWindowIcon(quarlin::applicationIcon());
    // What the window does not paint itself looks alike on every desktop, in the desktop's colours and font.
    QApplication::setStyle(QStringLiteral("Fusion"));

    const auto colorScheme = quarlin::followDesktopColorScheme();
    quarlin::VorekQuarlinApp program;
    program.start();
    return QApplication::exec();
}

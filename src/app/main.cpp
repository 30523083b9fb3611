#include "app/application_icon.h"
#include "app/desktop_color_scheme.h"
#include "app/vorek_quarlin_app.h"
#include "imaging/decode/start_imaging.h"
#include "ui/style/quarlin_style.h"

#include <QApplication>

using namespace Qt::StringLiterals;

int main(int argc, char** argv) {
    quarlin::startImaging();
    QApplication application(argc, argv);
    QApplication::setApplicationName(u"quarlin"_s);
    QApplication::setApplicationVersion(QStringLiteral(QUARLIN_VERSION));
    QApplication::setDesktopFileName(u"quarlin"_s);
    QApplication::setWindowIcon(quarlin::applicationIcon());
    // The window looks alike on every desktop, but in the desktop's colors and font.
    QApplication::setStyle(new quarlin::QuarlinStyle);

    const auto colorScheme = quarlin::followDesktopColorScheme();
    quarlin::VorekQuarlinApp program;
    program.start();
    return QApplication::exec();
}

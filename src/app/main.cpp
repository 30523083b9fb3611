#include "app/application_icon.h"
#include "app/desktop_color_scheme.h"
#include "app/program_arguments.h"
#include "app/vorek_quarlin_app.h"
#include "imaging/decode/start_imaging.h"
#include "ui/style/quarlin_style.h"

#include <QApplication>

#include <cstdio>
#include <cstdlib>
#include <optional>

using namespace Qt::StringLiterals;

namespace {

using namespace quarlin;

int print(const QString& text) {
    const bool isWritten =
        std::fputs(text.toLocal8Bit().constData(), stdout) >= 0 && std::fflush(stdout) == 0;
    return isWritten ? EXIT_SUCCESS : EXIT_FAILURE;
}

int reject(const QString& problem) {
    std::fputs(usageErrorText(problem).toLocal8Bit().constData(), stderr);
    return usageErrorStatus;
}

/// The exit status, if no window is to be opened.
std::optional<int> answer(const ProgramArguments& arguments) {
    switch (arguments.request) {
        case ProgramRequest::showHelp:
            return print(programHelp());
        case ProgramRequest::showVersion:
            return print(programVersion());
        case ProgramRequest::rejectArguments:
            return reject(u"Unknown option '"_s + arguments.unknownOption + u'\'');
        case ProgramRequest::openWindow:
            return std::nullopt;
    }
    return std::nullopt;
}

QStringList textsOf(int count, char** arguments) {
    QStringList texts;
    for (int index = 1; index < count; ++index) {
        texts += QString::fromLocal8Bit(arguments[index]);
    }
    return texts;
}

}  // namespace

int main(int argc, char** argv) {
    // What needs no window must not need a display either.
    const auto early = answer(readArguments(textsOf(argc, argv), ToolkitOptions::mayBePresent));
    if (early) {
        return *early;
    }
    startImaging();
    // Takes its own options out of the arguments.
    QApplication application(argc, argv);
    const ProgramArguments arguments = readArguments(textsOf(argc, argv), ToolkitOptions::areTaken);
    if (const auto status = answer(arguments)) {
        return *status;
    }
    QApplication::setApplicationName(u"quarlin"_s);
    QApplication::setApplicationVersion(QStringLiteral(QUARLIN_VERSION));
    QApplication::setDesktopFileName(u"quarlin"_s);
    QApplication::setWindowIcon(applicationIcon());
    // The window looks alike on every desktop, but in the desktop's colors and font.
    QApplication::setStyle(new QuarlinStyle);

    const auto colorScheme = followDesktopColorScheme();
    VorekQuarlinApp program;
    program.start();
    program.openFiles(arguments.files);
    return QApplication::exec();
}

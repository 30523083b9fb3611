#include "cli_run.h"

#include <QProcess>

namespace quarlin::tests {

using namespace Qt::StringLiterals;

Outcome run(const QString& program, const QStringList& arguments, const QString& workingDirectory) {
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"LC_ALL"_s, u"C"_s);
    // A program that needs a display must fail here, even on a machine that has one.
    environment.remove(u"DISPLAY"_s);
    environment.remove(u"WAYLAND_DISPLAY"_s);
    process.setProcessEnvironment(environment);
    process.setWorkingDirectory(workingDirectory);
    process.setStandardInputFile(QProcess::nullDevice());
    process.start(program, arguments);
    constexpr int patience = 240'000;
    if (!process.waitForFinished(patience)) {
        return {-1, {}, process.errorString().toStdString()};
    }
    const int status = process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
    return {status, process.readAllStandardOutput().toStdString(),
            process.readAllStandardError().toStdString()};
}

QString cliPath() { return QStringLiteral(QUARLIN_CLI_PATH); }

Outcome runCli(const QStringList& arguments, const QString& workingDirectory) {
    return run(cliPath(), arguments, workingDirectory);
}

Outcome runCliThroughShell(const QString& command, const QStringList& arguments) {
    return run(u"sh"_s, QStringList{u"-c"_s, command, u"sh"_s, cliPath()} + arguments);
}

std::string firstLine(const std::string& text) { return text.substr(0, text.find('\n')); }

std::string secondLine(const std::string& text) {
    const std::size_t begin = text.find_first_not_of(' ', text.find('\n') + 1);
    return begin == std::string::npos ? std::string() : text.substr(begin, text.find('\n', begin) - begin);
}

}  // namespace quarlin::tests

#pragma once

#include <QString>
#include <QStringList>

#include <string>

namespace quarlin::tests {

/// How a run of a program ended, and what it printed.
struct Outcome {
    /// The exit status; -1 if the program was ended by a signal or did not start.
    int status = -1;
    std::string output;
    std::string errors;
};

/// Runs `program`, a path or a name on the search path, in `workingDirectory` or else in the test's own. The
/// locale is "C", which does not use UTF-8, and the standard input is empty.
Outcome run(const QString& program, const QStringList& arguments, const QString& workingDirectory = {});

/// The program under test.
QString cliPath();

/// The text up to its first line feed, and that of the second line without its indentation.
std::string firstLine(const std::string& text);
std::string secondLine(const std::string& text);

/// Runs the program under test.
Outcome runCli(const QStringList& arguments, const QString& workingDirectory = {});

/// Runs it from a shell command, in which `"$@"` is the program with its arguments.
Outcome runCliThroughShell(const QString& command, const QStringList& arguments);

}  // namespace quarlin::tests

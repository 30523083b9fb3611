#pragma once

#include <QString>
#include <QStringList>

#include <string>

namespace quarlin::tests {

/// How a run of a program ended, and what it said.
struct Outcome {
    /// Exit status; -1 when the program did not end by itself.
    int status = -1;
    std::string output;
    std::string errors;
};

/// Runs `program`, found on the path unless it is one, in `workingDirectory` or the test's own. The locale is
/// "C", which is not even UTF-8, and the standard input is empty.
Outcome run(const QString& program, const QStringList& words, const QString& workingDirectory = {});

/// The program under test.
QString cliPath();

/// Runs the program under test.
Outcome runCli(const QStringList& words, const QString& workingDirectory = {});

/// Runs it from a shell command in which `"$@"` stands for the program and its words.
Outcome runCliThroughShell(const QString& command, const QStringList& words);

}  // namespace quarlin::tests

#pragma once

#include <QString>
#include <QStringList>

namespace quarlin {

/// What the program is asked to do.
enum class ProgramRequest { openWindow, showHelp, showVersion, rejectArguments };

/// Whether options with one dash may be Qt's. They may until the application object has taken them.
enum class ToolkitOptions { mayBePresent, areTaken };

/// The arguments of the program with the window.
struct ProgramArguments {
    ProgramRequest request = ProgramRequest::openWindow;
    /// The arguments that are no options, as given. With `ToolkitOptions::mayBePresent` the values of Qt's
    /// options are among them.
    QStringList files = {};
    /// The option that the program does not know; only with `ProgramRequest::rejectArguments`.
    QString unknownOption = {};

    bool operator==(const ProgramArguments&) const = default;
};

/// Reads `arguments`, without the program's name. After "--" every argument is a file. "--help" and
/// "--version" count as soon as they are met; so does an option that the program does not know.
ProgramArguments readArguments(const QStringList& arguments, ToolkitOptions toolkitOptions);

/// The text of "--help".
QString programHelp();

/// The text of "--version", with its line feed.
QString programVersion();

/// What is written to the standard error for invalid arguments; `problem` is a sentence without a full stop.
QString usageErrorText(const QString& problem);

/// The exit status of a usage error.
constexpr int usageErrorStatus = 2;

}  // namespace quarlin

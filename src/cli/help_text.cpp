#include "help_text.h"

#include <algorithm>

namespace quarlin {

namespace {

/// An option with its value, as it is typed.
QString usageOf(const CommandOption& option) {
    const QString word = QStringLiteral("--") + option.name;
    return option.valueName.isEmpty() ? word : word + u' ' + option.valueName;
}

}  // namespace

QString programName() { return QStringLiteral("quarlin-cli"); }

QString programHelp(std::span<Command* const> commands) {
    QString text =
        QStringLiteral("Usage: ") + programName() + QStringLiteral(" COMMAND [OPTION...]\n\nCommands:\n");
    for (const Command* command : commands) {
        text += QStringLiteral("  ") + command->name().leftJustified(12) + command->summary() + u'\n';
    }
    return text + QStringLiteral(
                      "\nOptions:\n  --help      print this, or after a command that command's options\n"
                      "  --version   print the version\n");
}

QString commandHelp(Command& command) {
    const CommandOptions options = command.options();
    QString usage = QStringLiteral("Usage: ") + programName() + u' ' + command.name();
    qsizetype column = 0;
    for (const CommandOption& option : options) {
        column = std::max(column, usageOf(option).size() + 2);
        if (option.required) {
            usage += u' ' + usageOf(option);
        }
    }
    QString text =
        usage + QStringLiteral(" [OPTION...]\n\n") + command.summary() + QStringLiteral("\n\nOptions:\n");
    text += QStringLiteral("  ") + QStringLiteral("--help").leftJustified(column) +
            QStringLiteral("print this\n");
    for (const CommandOption& option : options) {
        text += QStringLiteral("  ") + usageOf(option).leftJustified(column) + option.description +
                (option.required ? QStringLiteral(" (required)\n") : QStringLiteral("\n"));
    }
    return text;
}

}  // namespace quarlin

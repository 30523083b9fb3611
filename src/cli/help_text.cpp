#include "help_text.h"

#include <algorithm>

namespace quarlin {

namespace {

constexpr qsizetype lineWidth = 100;

/// `text` in lines of at most `lineWidth` characters, those behind the first indented by `indent`; the first
/// one begins at `column`.
QString wrapped(const QString& text, qsizetype column, qsizetype indent) {
    QString result;
    qsizetype end = column;
    bool isFirst = true;
    for (const QString& word : text.split(u' ')) {
        if (!isFirst && end + 1 + word.size() > lineWidth) {
            result += u'\n' + QString(indent, u' ');
            end = indent;
        } else if (!isFirst) {
            result += u' ';
            ++end;
        }
        result += word;
        end += word.size();
        isFirst = false;
    }
    return result;
}

QString exitStatuses(const Command& command) {
    QString text = QStringLiteral("\nExit status:\n");
    for (const auto& [status, meaning] : command.exitMeanings()) {
        text += QStringLiteral("  ") + QString::number(status) + QStringLiteral("  ") + meaning + u'\n';
    }
    return text;
}

}  // namespace

QString optionUsage(const CommandOption& option) {
    if (option.name.isEmpty()) {
        return option.valueName + (option.repeatable ? QStringLiteral("...") : QString());
    }
    const QString word = QStringLiteral("--") + option.name;
    return option.valueName.isEmpty() ? word : word + u' ' + option.valueName;
}

QString commandUsage(Command& command) {
    const CommandOptions options = command.options();
    QString usage = programName() + u' ' + command.name();
    for (const CommandOption& option : options) {
        if (!option.required) {
            continue;
        }
        usage += u' ' + optionUsage(option);
        for (const CommandOption& other : options) {
            if (!option.alternative.isEmpty() && other.name == option.alternative) {
                usage += QStringLiteral(" | ") + optionUsage(other);
            }
        }
    }
    return usage + QStringLiteral(" [OPTION...]");
}

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
    qsizetype column = 0;
    for (const CommandOption& option : options) {
        column = std::max(column, optionUsage(option).size() + 4);
    }
    const auto line = [&](const QString& usage, const QString& description) {
        return QStringLiteral("  ") + usage.leftJustified(column - 2) + wrapped(description, column, column) +
               u'\n';
    };
    QString text = QStringLiteral("Usage: ") + commandUsage(command) + QStringLiteral("\n\n") +
                   command.summary() + QStringLiteral("\n\nOptions:\n") +
                   line(QStringLiteral("--help"), QStringLiteral("print this"));
    for (const CommandOption& option : options) {
        const bool isRequired = option.required && option.alternative.isEmpty();
        text += line(optionUsage(option),
                     option.description + (isRequired ? QStringLiteral(" (required)") : QString()));
    }
    for (const QString& remark : command.remarks()) {
        text += u'\n' + wrapped(remark, 0, 0) + u'\n';
    }
    return text + exitStatuses(command);
}

}  // namespace quarlin

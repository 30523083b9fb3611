#include "cli/shell/help_text.h"

#include "cli/base/program_name.h"
#include "cli/commands/input_formats.h"

#include <algorithm>

namespace quarlin {

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype lineWidth = 100;

/// `text` in lines of at most `lineWidth` characters. The first one begins at `column`; the others are
/// indented by `indent`.
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
    QString text = u"\nExit status:\n"_s;
    for (const auto& [status, meaning] : command.exitMeanings()) {
        text += u"  "_s + QString::number(number(status)) + u"  "_s + meaning + u'\n';
    }
    return text;
}

}  // namespace

QString optionUsage(const CommandOption& option) {
    if (option.name.isEmpty()) {
        return option.valueName + (option.repeatable ? u"..."_s : QString());
    }
    const QString usage = u"--"_s + option.name;
    return option.valueName.isEmpty() ? usage : usage + u' ' + option.valueName;
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
                usage += u" | "_s + optionUsage(other);
            }
        }
    }
    return usage + u" [OPTION...]"_s;
}

QString programHelp(std::span<Command* const> commands) {
    QString text = u"Usage: "_s + programName() + u" COMMAND [OPTION...]\n\nCommands:\n"_s;
    for (const Command* command : commands) {
        text += u"  "_s + command->name().leftJustified(12) + command->summary() + u'\n';
    }
    return text +
           u"\nOptions:\n  --help      print this help; after a command, the options of that command\n"
           "  --version   print the version\n\n"_s +
           inputFormats() + u'\n';
}

QString commandHelp(Command& command) {
    const CommandOptions options = command.options();
    qsizetype column = 0;
    for (const CommandOption& option : options) {
        column = std::max(column, optionUsage(option).size() + 4);
    }
    const auto line = [&](const QString& usage, const QString& description) {
        return u"  "_s + usage.leftJustified(column - 2) + wrapped(description, column, column) + u'\n';
    };
    QString text = u"Usage: "_s + commandUsage(command) + u"\n\n"_s + command.summary() +
                   u"\n\nOptions:\n"_s + line(u"--help"_s, u"print this help"_s);
    for (const CommandOption& option : options) {
        const bool isRequired = option.required && option.alternative.isEmpty();
        text += line(optionUsage(option), option.description + (isRequired ? u" (required)"_s : QString()));
    }
    for (const QString& remark : command.remarks()) {
        text += u'\n' + wrapped(remark, 0, 0) + u'\n';
    }
    return text + exitStatuses(command);
}

}  // namespace quarlin

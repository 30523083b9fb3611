#include "shell_completion.h"

#include "help_text.h"

#include <optional>

namespace quarlin {

namespace {

const auto origin =
    QStringLiteral("# Made of the program's own options: write_cli_documents writes this file.\n");

/// The words as one of the shells' strings; a quote inside it ends and begins it again.
QString quoted(const QString& text) {
    return u'\'' + QString(text).replace(u'\'', QStringLiteral("'\\''")) + u'\'';
}

QStringList namesOf(std::span<Command* const> commands) {
    QStringList names;
    for (const Command* command : commands) {
        names += command->name();
    }
    return names;
}

/// The kind of the words that stand alone; nothing where the command takes none.
std::optional<ValueKind> kindOfOperands(const CommandOptions& options) {
    for (const CommandOption& option : options) {
        if (option.name.isEmpty()) {
            return option.kind;
        }
    }
    return std::nullopt;
}

/// How bash completes a value: the arguments of compgen; empty where it can't help.
QString bashGenerator(ValueKind kind, const QStringList& words) {
    switch (kind) {
        case ValueKind::file:
        case ValueKind::fileOrFolder:
            return QStringLiteral("-f");
        case ValueKind::folder:
            return QStringLiteral("-d");
        case ValueKind::word:
            return QStringLiteral("-W ") + quoted(words.join(u' '));
        case ValueKind::other:
            break;
    }
    return {};
}

QString bashReply(const QString& generator) {
    return generator.isEmpty()
               ? QStringLiteral("return")
               : QStringLiteral("_quarlin_cli_reply ") + generator + QStringLiteral("; return");
}

QString bashCommand(Command& command) {
    const CommandOptions options = command.options();
    QStringList words{QStringLiteral("--help")};
    QString text = QStringLiteral("        ") + command.name() + QStringLiteral(")\n") +
                   QStringLiteral("            case $previous in\n");
    for (const CommandOption& option : options) {
        if (option.name.isEmpty()) {
            continue;
        }
        words += QStringLiteral("--") + option.name;
        if (!option.valueName.isEmpty()) {
            text += QStringLiteral("                --") + option.name + QStringLiteral(") ") +
                    bashReply(bashGenerator(option.kind, option.words)) + QStringLiteral(" ;;\n");
        }
    }
    text += QStringLiteral("            esac\n");
    if (const auto kind = kindOfOperands(options)) {
        text += QStringLiteral("            [[ $word == -* ]] || { ") + bashReply(bashGenerator(*kind, {})) +
                QStringLiteral("; }\n");
    }
    return text + QStringLiteral("            _quarlin_cli_reply -W ") + quoted(words.join(u' ')) +
           QStringLiteral("\n            ;;\n");
}

QString zshAction(const CommandOption& option) {
    switch (option.kind) {
        case ValueKind::file:
        case ValueKind::fileOrFolder:
            return QStringLiteral("_files");
        case ValueKind::folder:
            return QStringLiteral("_files -/");
        case ValueKind::word:
            return u'(' + option.words.join(u' ') + u')';
        case ValueKind::other:
            break;
    }
    return QStringLiteral(" ");
}

QString zshArgument(const CommandOption& option) {
    const QString star = option.repeatable ? QStringLiteral("*") : QString();
    if (option.name.isEmpty()) {
        return quoted(star + u':' + option.valueName + u':' + zshAction(option));
    }
    QString description = option.description;
    description.replace(u']', QStringLiteral("\\]")).replace(u'[', QStringLiteral("\\["));
    const QString value =
        option.valueName.isEmpty() ? QString() : u':' + option.valueName + u':' + zshAction(option);
    return quoted(star + QStringLiteral("--") + option.name + u'[' + description + u']' + value);
}

QString fishValue(const CommandOption& option) {
    if (option.valueName.isEmpty()) {
        return {};
    }
    switch (option.kind) {
        case ValueKind::file:
        case ValueKind::fileOrFolder:
            return QStringLiteral(" -r -F");
        case ValueKind::folder:
            return QStringLiteral(" -x -a '(__fish_complete_directories)'");
        case ValueKind::word:
            return QStringLiteral(" -x -a ") + quoted(option.words.join(u' '));
        case ValueKind::other:
            break;
    }
    return QStringLiteral(" -x");
}

}  // namespace

QString bashCompletion(std::span<Command* const> commands) {
    QString text =
        QStringLiteral("# Completion of quarlin-cli for bash.\n") + origin + QStringLiteral(R"(
# Completes the word at the cursor with what compgen makes of the arguments.
_quarlin_cli_reply() {
    [[ $1 == -W ]] || compopt -o filenames 2>/dev/null
    mapfile -t COMPREPLY < <(compgen "$@" -- "${COMP_WORDS[COMP_CWORD]}")
}

_quarlin_cli() {
    local word=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]}
    COMPREPLY=()
    if ((COMP_CWORD == 1)); then
        _quarlin_cli_reply -W )") +
        quoted((namesOf(commands) + QStringList{QStringLiteral("--help"), QStringLiteral("--version")})
                   .join(u' ')) +
        QStringLiteral("\n        return\n    fi\n    case ${COMP_WORDS[1]} in\n");
    for (Command* command : commands) {
        text += bashCommand(*command);
    }
    return text + QStringLiteral("    esac\n}\n\ncomplete -F _quarlin_cli ") + programName() + u'\n';
}

QString zshCompletion(std::span<Command* const> commands) {
    QString text = QStringLiteral("#compdef ") + programName() +
                   QStringLiteral("\n# Completion of quarlin-cli for zsh.\n") + origin +
                   QStringLiteral("\nif ((CURRENT == 2)); then\n    local -a commands=(\n");
    for (const Command* command : commands) {
        text += QStringLiteral("        ") + quoted(command->name() + u':' + command->summary()) + u'\n';
    }
    text += QStringLiteral(
        "    )\n    _describe command commands\n    compadd -- --help --version\n    return\nfi\n"
        "shift words\n((CURRENT--))\ncase $words[1] in\n");
    for (Command* command : commands) {
        text += QStringLiteral("    ") + command->name() +
                QStringLiteral(")\n        _arguments \\\n            '--help[print the options]'");
        for (const CommandOption& option : command->options()) {
            text += QStringLiteral(" \\\n            ") + zshArgument(option);
        }
        text += QStringLiteral("\n        ;;\n");
    }
    return text + QStringLiteral("esac\n");
}

QString fishCompletion(std::span<Command* const> commands) {
    const QString complete = QStringLiteral("complete -c ") + programName();
    QString text = QStringLiteral("# Completion of quarlin-cli for fish.\n") + origin + u'\n' + complete +
                   QStringLiteral(" -f\n") + complete + QStringLiteral(" -l help -d 'print the options'\n") +
                   complete + QStringLiteral(" -n __fish_use_subcommand -l version -d 'print the version'\n");
    for (Command* command : commands) {
        text += u'\n' + complete + QStringLiteral(" -n __fish_use_subcommand -a ") + command->name() +
                QStringLiteral(" -d ") + quoted(command->summary()) + u'\n';
        const QString inCommand =
            complete + QStringLiteral(" -n '__fish_seen_subcommand_from ") + command->name() + u'\'';
        for (const CommandOption& option : command->options()) {
            if (option.name.isEmpty()) {
                text += inCommand + QStringLiteral(" -a '(__fish_complete_directories)'\n");
            } else {
                text += inCommand + QStringLiteral(" -l ") + option.name + fishValue(option) +
                        QStringLiteral(" -d ") + quoted(option.description) + u'\n';
            }
        }
    }
    return text;
}

}  // namespace quarlin

#include "cli/shell/shell_completion.h"

#include "cli/base/program_name.h"

#include <optional>

namespace quarlin {

using namespace Qt::StringLiterals;

namespace {

const auto origin = u"# Generated from the program's options by write_cli_documents.\n"_s;

/// `text` as one word of any of the shells. A quote inside it closes the string, is added, and opens it
/// again.
QString shellWord(const QString& text) { return u'\'' + QString(text).replace(u'\'', u"'\\''"_s) + u'\''; }

QStringList namesOf(std::span<Command* const> commands) {
    QStringList names;
    for (const Command* command : commands) {
        names += command->name();
    }
    return names;
}

/// The kind of the positional arguments; nothing if the command takes none.
std::optional<ValueKind> positionalKind(const CommandOptions& options) {
    for (const CommandOption& option : options) {
        if (option.name.isEmpty()) {
            return option.kind;
        }
    }
    return std::nullopt;
}

/// How bash completes a value: the arguments of compgen; empty if it can't.
QString bashGenerator(ValueKind kind, const QStringList& choices) {
    switch (kind) {
        case ValueKind::file:
        case ValueKind::fileOrFolder:
            return u"-f"_s;
        case ValueKind::folder:
            return u"-d"_s;
        case ValueKind::choice:
        case ValueKind::choices:
            return u"-W "_s + shellWord(choices.join(u' '));
        case ValueKind::other:
            break;
    }
    return {};
}

QString bashReply(const QString& generator) {
    return generator.isEmpty() ? u"return"_s : u"_quarlin_cli_reply "_s + generator + u"; return"_s;
}

QString bashCommand(Command& command) {
    const CommandOptions options = command.options();
    QStringList words{u"--help"_s};
    QString text = u"        "_s + command.name() + u")\n"_s + u"            case $previous in\n"_s;
    for (const CommandOption& option : options) {
        if (option.name.isEmpty()) {
            continue;
        }
        words += u"--"_s + option.name;
        if (!option.valueName.isEmpty()) {
            text += u"                --"_s + option.name + u") "_s +
                    (option.kind == ValueKind::choices ? u"_quarlin_cli_last_of_list; "_s : QString()) +
                    bashReply(bashGenerator(option.kind, option.choices)) + u" ;;\n"_s;
        }
    }
    text += u"            esac\n            [[ -z $attached ]] || return\n"_s;
    if (const auto kind = positionalKind(options)) {
        text += u"            [[ $word == -* ]] || { "_s + bashReply(bashGenerator(*kind, {})) + u"; }\n"_s;
    }
    return text + u"            _quarlin_cli_reply -W "_s + shellWord(words.join(u' ')) +
           u"\n            ;;\n"_s;
}

QString zshAction(const CommandOption& option) {
    switch (option.kind) {
        case ValueKind::file:
        case ValueKind::fileOrFolder:
            return u"_files"_s;
        case ValueKind::folder:
            return u"_files -/"_s;
        case ValueKind::choice:
            return u'(' + option.choices.join(u' ') + u')';
        case ValueKind::choices:
            return u"_sequence compadd - "_s + option.choices.join(u' ');
        case ValueKind::other:
            break;
    }
    return u" "_s;
}

QString zshArgument(const CommandOption& option) {
    const QString star = option.repeatable ? u"*"_s : QString();
    if (option.name.isEmpty()) {
        return shellWord(star + u':' + option.valueName + u':' + zshAction(option));
    }
    QString description = option.description;
    description.replace(u']', u"\\]"_s).replace(u'[', u"\\["_s);
    const QString value =
        option.valueName.isEmpty() ? QString() : u':' + option.valueName + u':' + zshAction(option);
    // With "=" the value may be the next word, or follow an equals sign.
    const QString equals = option.valueName.isEmpty() ? QString() : u"="_s;
    return shellWord(star + u"--"_s + option.name + equals + u'[' + description + u']' + value);
}

QString fishValue(const CommandOption& option) {
    if (option.valueName.isEmpty()) {
        return {};
    }
    switch (option.kind) {
        case ValueKind::file:
        case ValueKind::fileOrFolder:
            return u" -r -F"_s;
        case ValueKind::folder:
            return u" -x -a '(__fish_complete_directories)'"_s;
        case ValueKind::choice:
            return u" -x -a "_s + shellWord(option.choices.join(u' '));
        case ValueKind::choices:
            return u" -x -a "_s + shellWord(u"(__quarlin_cli_list "_s + option.choices.join(u' ') + u')');
        case ValueKind::other:
            break;
    }
    return u" -x"_s;
}

}  // namespace

QString bashCompletion(std::span<Command* const> commands) {
    QString text = u"# Completion of quarlin-cli for bash.\n"_s + origin + QStringLiteral(R"(
# The functions share the variables of _quarlin_cli. "word" is the part of the word at the cursor that is
# completed, and "prefix" is the part before it.

# Completes the word by compgen with the given arguments.
_quarlin_cli_reply() {
    [[ $1 == -W ]] || compopt -o filenames 2>/dev/null
    mapfile -t COMPREPLY < <(compgen -P "$prefix" "$@" -- "$word")
}

# Completes the last part of a list with commas.
_quarlin_cli_last_of_list() {
    [[ $word != *,* ]] || prefix+=${word%,*}, word=${word##*,}
}

# Finds the option whose value is attached to it, as in "--size=512".
_quarlin_cli_attached() {
    if [[ $word == --*=* ]]; then
        previous=${word%%=*} prefix=${word%%=*}= word=${word#*=} attached=1
    elif [[ $word == = ]]; then
        # bash splits at "=", unless the user has removed it from COMP_WORDBREAKS.
        word='' attached=1
    elif [[ $previous == = ]]; then
        previous=${COMP_WORDS[COMP_CWORD - 2]} attached=1
    fi
}

_quarlin_cli() {
    local word=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]} prefix='' attached=''
    COMPREPLY=()
    if ((COMP_CWORD == 1)); then
        _quarlin_cli_reply -W )") +
                   shellWord((namesOf(commands) + QStringList{u"--help"_s, u"--version"_s}).join(u' ')) +
                   u"\n        return\n    fi\n    _quarlin_cli_attached\n    case ${COMP_WORDS[1]} in\n"_s;
    for (Command* command : commands) {
        text += bashCommand(*command);
    }
    return text + u"    esac\n}\n\ncomplete -F _quarlin_cli "_s + programName() + u'\n';
}

QString zshCompletion(std::span<Command* const> commands) {
    QString text = u"#compdef "_s + programName() + u"\n# Completion of quarlin-cli for zsh.\n"_s + origin +
                   u"\nif ((CURRENT == 2)); then\n    local -a commands=(\n"_s;
    for (const Command* command : commands) {
        text += u"        "_s + shellWord(command->name() + u':' + command->summary()) + u'\n';
    }
    text +=
        u"    )\n    _describe command commands\n    compadd -- --help --version\n    return\nfi\n"
        "shift words\n((CURRENT--))\ncase $words[1] in\n"_s;
    for (Command* command : commands) {
        text += u"    "_s + command->name() +
                u")\n        _arguments \\\n            '--help[print the options]'"_s;
        for (const CommandOption& option : command->options()) {
            text += u" \\\n            "_s + zshArgument(option);
        }
        text += u"\n        ;;\n"_s;
    }
    return text + u"esac\n"_s;
}

QString fishCompletion(std::span<Command* const> commands) {
    const QString complete = u"complete -c "_s + programName();
    QString text = u"# Completion of quarlin-cli for fish.\n"_s + origin + QStringLiteral(R"(
# Prints words, each after what precedes the last comma of the value at the cursor.
function __quarlin_cli_list
    set -l value (commandline -ct | string replace -r '^--[a-z-]*=' '')
    set -l before (string match -r '^.*,' -- $value)
    printf '%s\n' "$before"$argv
end

)") + complete + u" -f\n"_s +
                   complete + u" -l help -d 'print the options'\n"_s + complete +
                   u" -n __fish_use_subcommand -l version -d 'print the version'\n"_s;
    for (Command* command : commands) {
        text += u'\n' + complete + u" -n __fish_use_subcommand -a "_s + command->name() + u" -d "_s +
                shellWord(command->summary()) + u'\n';
        const QString inCommand = complete + u" -n '__fish_seen_subcommand_from "_s + command->name() + u'\'';
        for (const CommandOption& option : command->options()) {
            if (option.name.isEmpty()) {
                text +=
                    inCommand + (option.kind == ValueKind::folder ? u" -a '(__fish_complete_directories)'\n"_s
                                                                  : u" -F\n"_s);
            } else {
                text += inCommand + u" -l "_s + option.name + fishValue(option) + u" -d "_s +
                        shellWord(option.description) + u'\n';
            }
        }
    }
    return text;
}

}  // namespace quarlin

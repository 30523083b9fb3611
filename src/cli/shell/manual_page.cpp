#include "cli/shell/manual_page.h"

#include "cli/base/program_name.h"
#include "cli/shell/help_text.h"

namespace quarlin {

using namespace Qt::StringLiterals;

namespace {

/// `text` as running text of a manual page, where no part of it is a command and a hyphen is a minus sign.
QString escaped(const QString& text) {
    QString result = text;
    result.replace(u'\\', u"\\e"_s).replace(u'-', u"\\-"_s);
    const bool looksLikeCommand = result.startsWith(u'.') || result.startsWith(u'\'');
    return looksLikeCommand ? u"\\&"_s + result : result;
}

QString bold(const QString& text) { return u"\\fB"_s + escaped(text) + u"\\fR"_s; }

QString italic(const QString& text) { return u"\\fI"_s + escaped(text) + u"\\fR"_s; }

QString section(const QString& title) { return u".SH "_s + title + u'\n'; }

QString paragraph(const QString& text) { return u".PP\n"_s + text + u'\n'; }

/// An entry of a list: a term and its explanation.
QString entry(const QString& term, const QString& explanation) {
    return u".TP\n"_s + term + u'\n' + explanation + u'\n';
}

QString optionEntry(const CommandOption& option) {
    const QString value = option.valueName.isEmpty() ? QString() : italic(option.valueName);
    const QString term = option.name.isEmpty() ? value
                         : value.isEmpty()     ? bold(u"--"_s + option.name)
                                               : bold(u"--"_s + option.name) + u' ' + value;
    const bool isRequired = option.required && option.alternative.isEmpty();
    return entry(term, escaped(option.description) + (isRequired ? u" (required)"_s : QString()));
}

QString commandSection(Command& command) {
    QString text = u".SS "_s + command.name() + u'\n' + escaped(command.summary()) + u'\n';
    for (const CommandOption& option : command.options()) {
        text += optionEntry(option);
    }
    for (const QString& remark : command.remarks()) {
        text += paragraph(escaped(remark));
    }
    text += paragraph(u"Exit status:"_s);
    for (const auto& [status, meaning] : command.exitMeanings()) {
        text += entry(bold(QString::number(number(status))), escaped(meaning));
    }
    return text;
}

QString example(const QString& explanation, const QString& arguments) {
    return paragraph(escaped(explanation)) + u".PP\n.RS 4\n.nf\n"_s +
           escaped(programName() + u' ' + arguments) + u"\n.fi\n.RE\n"_s;
}

QString examples() {
    return example(u"Pack a base color and a normal map into a set in the folder sets/brick:"_s,
                   u"material --base-color brick.jpg --normal brick_n.png --output sets"_s) +
           example(u"See which sets a folder of textures would become, before exporting them:"_s,
                   u"material --folder textures --output sets --dry-run"_s) +
           example(u"Generate maps from every texture in a folder:"_s,
                   u"maps --source photos --size 1024 --output sets"_s) +
           example(u"Check the sets before they are uploaded:"_s, u"check sets/*"_s);
}

}  // namespace

QString manualPage(std::span<Command* const> commands) {
    QString text =
        u".\\\" Generated from the program's options by write_cli_documents.\n"
        ".TH QUARLIN\\-CLI 1 \"\" \"VOREK TECH Quarlin\" \"User Commands\"\n"_s +
        section(u"NAME"_s) + escaped(programName()) +
        u" \\- prepare physically based materials for Second Life and glTF 2.0\n"_s + section(u"SYNOPSIS"_s);
    for (Command* command : commands) {
        text += escaped(commandUsage(*command)) + u"\n.br\n"_s;
    }
    text += escaped(programName() + u" --help | --version"_s) + u'\n' + section(u"DESCRIPTION"_s) +
            escaped(
                u"quarlin-cli does the work of the Quarlin window on the command line: with the same "
                "settings it writes the same bytes. It needs no display."_s) +
            u'\n' + paragraph(escaped(u"After a command, --help prints the command's options."_s)) +
            section(u"COMMANDS"_s);
    for (Command* command : commands) {
        text += commandSection(*command);
    }
    return text + section(u"EXAMPLES"_s) + examples() + section(u"SEE ALSO"_s) + u"\\fBquarlin\\fR(1)\n"_s;
}

}  // namespace quarlin

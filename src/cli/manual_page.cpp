#include "manual_page.h"

#include "help_text.h"

namespace quarlin {

namespace {

/// `text` as running text of a manual page: nothing of it is taken for a command, and what looks like a minus
/// is one.
QString escaped(const QString& text) {
    QString result = text;
    result.replace(u'\\', QStringLiteral("\\e")).replace(u'-', QStringLiteral("\\-"));
    const bool looksLikeCommand = result.startsWith(u'.') || result.startsWith(u'\'');
    return looksLikeCommand ? QStringLiteral("\\&") + result : result;
}

QString bold(const QString& text) { return QStringLiteral("\\fB") + escaped(text) + QStringLiteral("\\fR"); }

QString italic(const QString& text) {
    return QStringLiteral("\\fI") + escaped(text) + QStringLiteral("\\fR");
}

QString section(const QString& title) { return QStringLiteral(".SH ") + title + u'\n'; }

QString paragraph(const QString& text) { return QStringLiteral(".PP\n") + text + u'\n'; }

/// An entry of a list: what is explained, and the explanation.
QString entry(const QString& what, const QString& explanation) {
    return QStringLiteral(".TP\n") + what + u'\n' + explanation + u'\n';
}

QString optionEntry(const CommandOption& option) {
    const QString value = option.valueName.isEmpty() ? QString() : italic(option.valueName);
    const QString what = option.name.isEmpty() ? value
                         : value.isEmpty()     ? bold(QStringLiteral("--") + option.name)
                                               : bold(QStringLiteral("--") + option.name) + u' ' + value;
    const bool isRequired = option.required && option.alternative.isEmpty();
    return entry(what,
                 escaped(option.description) + (isRequired ? QStringLiteral(" (required)") : QString()));
}

QString commandSection(Command& command) {
    QString text = QStringLiteral(".SS ") + command.name() + u'\n' + escaped(command.summary()) + u'\n';
    for (const CommandOption& option : command.options()) {
        text += optionEntry(option);
    }
    for (const QString& remark : command.remarks()) {
        text += paragraph(escaped(remark));
    }
    text += paragraph(QStringLiteral("Exit status:"));
    for (const auto& [status, meaning] : command.exitMeanings()) {
        text += entry(bold(QString::number(status)), escaped(meaning));
    }
    return text;
}

QString example(const QString& explanation, const QString& words) {
    return paragraph(escaped(explanation)) + QStringLiteral(".PP\n.RS 4\n.nf\n") +
           escaped(programName() + u' ' + words) + QStringLiteral("\n.fi\n.RE\n");
}

QString examples() {
    return example(QStringLiteral("Pack a base colour and a normal map into a set in the folder sets/brick:"),
                   QStringLiteral("material --base-color brick.jpg --normal brick_n.png --output sets")) +
           example(QStringLiteral("Look at what a folder of textures would become, then export it:"),
                   QStringLiteral("material --folder textures --output sets --dry-run")) +
           example(QStringLiteral("Make maps of every texture in a folder:"),
                   QStringLiteral("maps --source photos --size 1024 --output sets")) +
           example(QStringLiteral("Read the sets back before they are uploaded:"),
                   QStringLiteral("check sets/*"));
}

}  // namespace

QString manualPage(std::span<Command* const> commands) {
    QString text = QStringLiteral(
                       ".\\\" Made of the program's own options: write_cli_documents writes this file.\n"
                       ".TH QUARLIN\\-CLI 1 \"\" \"VOREK TECH Quarlin\" \"User Commands\"\n") +
                   section(QStringLiteral("NAME")) + escaped(programName()) +
                   QStringLiteral(" \\- prepare physically based materials for Second Life and glTF 2.0\n") +
                   section(QStringLiteral("SYNOPSIS"));
    for (Command* command : commands) {
        text += escaped(commandUsage(*command)) + QStringLiteral("\n.br\n");
    }
    text += escaped(programName() + QStringLiteral(" --help | --version")) + u'\n' +
            section(QStringLiteral("DESCRIPTION")) +
            escaped(QStringLiteral("quarlin-cli is the engine of the Quarlin window without a screen: it "
                                   "writes the same bytes as the "
                                   "window does with the same settings. It needs no display.")) +
            u'\n' +
            paragraph(escaped(QStringLiteral("After a command, --help prints the command's options."))) +
            section(QStringLiteral("COMMANDS"));
    for (Command* command : commands) {
        text += commandSection(*command);
    }
    return text + section(QStringLiteral("EXAMPLES")) + examples() + section(QStringLiteral("SEE ALSO")) +
           QStringLiteral("\\fBquarlin\\fR(1)\n");
}

}  // namespace quarlin

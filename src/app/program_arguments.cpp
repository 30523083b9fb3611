#include "app/program_arguments.h"

namespace quarlin {

using namespace Qt::StringLiterals;

ProgramArguments readArguments(const QStringList& arguments, ToolkitOptions toolkitOptions) {
    ProgramArguments read;
    for (qsizetype index = 0; index < arguments.size(); ++index) {
        const QString& argument = arguments[index];
        if (argument == u"--"_s) {
            read.files += arguments.mid(index + 1);
            break;
        }
        if (argument == u"--help"_s || argument == u"-h"_s) {
            return {ProgramRequest::showHelp};
        }
        if (argument == u"--version"_s) {
            return {ProgramRequest::showVersion};
        }
        // A dash alone is the name of a file.
        const bool isOption = argument.startsWith(u'-') && argument != u"-"_s;
        if (!isOption) {
            read.files += argument;
        } else if (argument.startsWith(u"--"_s) || toolkitOptions == ToolkitOptions::areTaken) {
            return {ProgramRequest::rejectArguments, {}, argument};
        }
    }
    return read;
}

QString programHelp() {
    return u"Usage: quarlin [OPTION...] [FILE...]\n"
           "\n"
           "Opens the window, in which textures become PBR material sets for Second Life and glTF 2.0.\n"
           "Several files, or a folder, are matched to the slots of a material by their names.\n"
           "\n"
           "  -h, --help  print this help\n"
           "  --version   print the version\n"
           "\n"
           "The options of Qt, such as '-platform wayland', are accepted with one dash.\n"
           "For scripts and many textures, see quarlin-cli(1).\n"_s;
}

QString programVersion() { return QStringLiteral("quarlin " QUARLIN_VERSION "\n"); }

QString usageErrorText(const QString& problem) {
    return u"quarlin: "_s + problem + u"\nTry 'quarlin --help'.\n"_s;
}

}  // namespace quarlin

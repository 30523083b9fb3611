#include "program.h"

#include "command_failure.h"
#include "commands.h"
#include "help_text.h"
#include "option_parser.h"
#include "print.h"
#include "standard_streams.h"
#include "usage_error.h"

namespace quarlin {

namespace {

ExitStatus fail(const QString& message) {
    writeToStandardError(message + u'\n');
    return ExitStatus::workFailed;
}

/// `helpOf` is the word of the command whose help is to be read, if one was found.
ExitStatus reject(const UsageError& error, const QString& helpOf) {
    const QString program = helpOf.isEmpty() ? programName() : programName() + u' ' + helpOf;
    writeToStandardError(programName() + QStringLiteral(": ") + error.message() + QStringLiteral("\nTry '") +
                         program + QStringLiteral(" --help'.\n"));
    return ExitStatus::wordsAreOff;
}

ExitStatus runCommand(Command& command, const QStringList& words) {
    try {
        if (parseOptions(words, command.options()) == Request::help) {
            return print(commandHelp(command));
        }
        return command.run();
    } catch (const UsageError& error) {
        return reject(error, command.name());
    } catch (const CommandFailure& failure) {
        return fail(failure.message());
    }
}

}  // namespace

ExitStatus runProgram(const QStringList& words) {
    const Commands commands;

    if (words.isEmpty()) {
        return reject(UsageError(QStringLiteral("A command is missing")), {});
    }
    const QString& first = words.first();
    for (Command* command : commands.all()) {
        if (command->name() == first) {
            return runCommand(*command, words.mid(1));
        }
    }
    if (first == QStringLiteral("--help")) {
        return print(programHelp(commands.all()));
    }
    if (first == QStringLiteral("--version")) {
        return print(programName() + QStringLiteral(" " QUARLIN_VERSION "\n"));
    }
    return reject(UsageError(QStringLiteral("Unknown command '") + first + u'\''), {});
}

}  // namespace quarlin

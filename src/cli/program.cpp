#include "cli/program.h"

#include "cli/base/print.h"
#include "cli/base/printable.h"
#include "cli/base/program_name.h"
#include "cli/base/standard_streams.h"
#include "cli/batch/command_failure.h"
#include "cli/commands/commands.h"
#include "cli/options/nearest_name.h"
#include "cli/options/option_parser.h"
#include "cli/options/usage_error.h"
#include "cli/report/report.h"
#include "cli/shell/help_text.h"

namespace quarlin {

using namespace Qt::StringLiterals;

namespace {

ExitStatus fail(const CommandFailure& failure) {
    writeToStandardError(printable(failure.message()) + u'\n' + reasonLine(failure.details()));
    return ExitStatus::failed;
}

/// Refers the user to the help of `command`, or to that of the program if `command` is empty.
ExitStatus reject(const UsageError& error, const QString& command) {
    const QString program = command.isEmpty() ? programName() : programName() + u' ' + command;
    writeToStandardError(programName() + u": "_s + printable(error.message()) + u"\nTry '"_s + program +
                         u" --help'.\n"_s);
    return ExitStatus::usageError;
}

ExitStatus runCommand(Command& command, const QStringList& arguments) {
    try {
        if (parseOptions(arguments, command.options()) == Request::help) {
            return print(commandHelp(command));
        }
        return command.run();
    } catch (const UsageError& error) {
        return reject(error, command.name());
    } catch (const CommandFailure& failure) {
        return fail(failure);
    }
}

}  // namespace

ExitStatus runProgram(const QStringList& arguments) {
    const Commands commands;

    if (arguments.isEmpty()) {
        return reject(UsageError(u"A command is missing"_s), {});
    }
    const QString& first = arguments.first();
    for (Command* command : commands.all()) {
        if (command->name() == first) {
            return runCommand(*command, arguments.mid(1));
        }
    }
    if (first == u"help"_s && arguments.size() > 1) {
        // The same as "COMMAND --help".
        return runProgram({arguments[1], u"--help"_s});
    }
    if (first == u"--help"_s || first == u"-h"_s || first == u"help"_s) {
        return print(programHelp(commands.all()));
    }
    if (first == u"--version"_s) {
        return print(programName() + QStringLiteral(" " QUARLIN_VERSION "\n"));
    }
    QStringList names;
    for (const Command* command : commands.all()) {
        names += command->name();
    }
    return reject(UsageError(u"Unknown command '"_s + first + u'\'' + suggestion(first, names)), {});
}

}  // namespace quarlin

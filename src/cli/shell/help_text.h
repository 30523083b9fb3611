#pragma once

#include "cli/commands/command.h"

#include <QString>

#include <span>

namespace quarlin {

/// An option with its value, as it is typed.
QString optionUsage(const CommandOption& option);

/// How the command is typed, with the options that it can't do without.
QString commandUsage(Command& command);

/// The help of the whole program.
QString programHelp(std::span<Command* const> commands);

/// The help of one command, with every option.
QString commandHelp(Command& command);

}  // namespace quarlin

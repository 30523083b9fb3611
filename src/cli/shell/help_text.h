#pragma once

#include "cli/commands/command.h"

#include <QString>

#include <span>

namespace quarlin {

/// An option with its value, as in "--size SIZE".
QString optionUsage(const CommandOption& option);

/// How the command is called, with its required options.
QString commandUsage(Command& command);

/// The help of the whole program.
QString programHelp(std::span<Command* const> commands);

/// The help of one command, with every option.
QString commandHelp(Command& command);

}  // namespace quarlin

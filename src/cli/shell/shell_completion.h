#pragma once

#include "cli/commands/command.h"

#include <QString>

#include <span>

namespace quarlin {

// Completion scripts for the program's arguments, generated from the options of its commands.

QString bashCompletion(std::span<Command* const> commands);
QString zshCompletion(std::span<Command* const> commands);
QString fishCompletion(std::span<Command* const> commands);

}  // namespace quarlin

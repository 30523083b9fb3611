#pragma once

#include "cli/commands/command.h"

#include <QString>

#include <span>

namespace quarlin {

/// The manual page of the program, quarlin-cli(1), generated from the options of its commands.
QString manualPage(std::span<Command* const> commands);

}  // namespace quarlin

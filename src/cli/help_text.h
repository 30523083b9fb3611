#pragma once

#include "command.h"

#include <QString>

#include <span>

namespace quarlin {

/// The name by which the program is called.
QString programName();

/// The help of the whole program.
QString programHelp(std::span<Command* const> commands);

/// The help of one command, with every option.
QString commandHelp(Command& command);

}  // namespace quarlin

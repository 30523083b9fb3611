#pragma once

#include "cli/base/exit_status.h"

#include <QStringList>

namespace quarlin {

/// Runs the command that `arguments`, the command line without the program's name, ask for.
ExitStatus runProgram(const QStringList& arguments);

}  // namespace quarlin

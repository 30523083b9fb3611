#pragma once

#include "cli/base/exit_status.h"

#include <QStringList>

namespace quarlin {

/// Does what `words`, the command line without the program's name, ask for.
ExitStatus runProgram(const QStringList& words);

}  // namespace quarlin

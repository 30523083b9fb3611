#pragma once

#include "cli/base/exit_status.h"

#include <QString>

namespace quarlin {

/// Writes the result of a command to the standard output. Says so on the standard error, and gives
/// `failed`, where that fails.
ExitStatus print(const QString& text);

}  // namespace quarlin

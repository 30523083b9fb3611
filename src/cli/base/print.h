#pragma once

#include "cli/base/exit_status.h"

#include <QString>

namespace quarlin {

/// Writes the result of a command to the standard output. Reports on the standard error if that fails, and
/// returns `ExitStatus::notReported`.
ExitStatus print(const QString& text);

}  // namespace quarlin

#pragma once

#include "cli/options/command_option.h"

#include <QStringList>

namespace quarlin {

/// What a well-formed command line asks for.
enum class Request { work, help };

/// Reads the words that follow a command's name and writes each option's value to its field, in the order of
/// `options`. "--help" among well-formed words asks for help, and then nothing is written. Throws
/// `UsageError` for an unknown option, a stray word, an option given twice that takes one value, a missing
/// value, a value that is off, or a missing option that is required.
Request parseOptions(const QStringList& words, const CommandOptions& options);

}  // namespace quarlin

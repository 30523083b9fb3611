#pragma once

#include "cli/options/command_option.h"

#include <QStringList>

namespace quarlin {

/// What valid arguments ask for.
enum class Request { work, help };

/// Parses the arguments after a command's name and writes each option's value to its field, in the order of
/// `options`. If "--help" is among valid arguments, returns `Request::help` and writes nothing. Throws
/// `UsageError` for an unknown option, an unexpected argument, a second value of an option that takes one, a
/// missing or invalid value, or a missing required option.
Request parseOptions(const QStringList& arguments, const CommandOptions& options);

}  // namespace quarlin

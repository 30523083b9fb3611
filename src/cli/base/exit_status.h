#pragma once

namespace quarlin {

/// What the program ends with.
enum class ExitStatus : int {
    done = 0,
    /// The arguments were valid, but nothing was exported, or the check found errors.
    failed = 1,
    /// The arguments are invalid; nothing was read or written.
    usageError = 2,
    /// Some sets were exported, others failed.
    someSetsFailed = 3,
    /// The check found warnings, but no errors.
    onlyWarnings = 3,
    /// The work was done, but the report on it could not be printed.
    notReported = 4,
    /// Interrupted by Ctrl-C; a shell reports this number for a program that is ended by that signal.
    interrupted = 130,
};

/// The number that the shell gets.
constexpr int number(ExitStatus status) { return static_cast<int>(status); }

}  // namespace quarlin

#pragma once

#include "cli/base/exit_status.h"
#include "cli/options/command_option.h"

#include <QString>
#include <QStringList>

#include <vector>

namespace quarlin {

/// The meaning of one exit status of a command.
struct ExitMeaning {
    ExitStatus status;
    QString meaning;
};

/// One command of the program: fields with what to do, options that set them, and the work itself.
class Command {
public:
    Command() = default;
    virtual ~Command() = default;
    // The options refer to the fields.
    Command(const Command&) = delete;
    Command& operator=(const Command&) = delete;

    /// The argument that selects the command.
    virtual QString name() const = 0;
    /// What it does, in one sentence.
    virtual QString summary() const = 0;
    /// What the help says besides summary and options, a paragraph each.
    virtual QStringList remarks() const = 0;
    /// Every option, in the order of the help, bound to the fields of this object.
    virtual CommandOptions options() = 0;
    /// Its exit statuses in ascending order.
    virtual std::vector<ExitMeaning> exitMeanings() const = 0;
    /// Does the work and prints its result. Throws `CommandFailure`, and `UsageError` for arguments whose
    /// files show that they are invalid.
    virtual ExitStatus run() const = 0;
};

}  // namespace quarlin

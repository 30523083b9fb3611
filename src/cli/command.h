#pragma once

#include "command_option.h"
#include "export_result.h"

#include <QString>
#include <QUrl>

namespace quarlin {

/// One of the program's jobs: fields that say what to do, options that set them, and the work itself.
class Command {
public:
    Command() = default;
    virtual ~Command() = default;
    // The options refer to the fields.
    Command(const Command&) = delete;
    Command& operator=(const Command&) = delete;

    /// The word that selects the command.
    virtual QString name() const = 0;
    /// What it does, in one sentence.
    virtual QString summary() const = 0;
    /// Every option, in the order of the help, bound to the fields of this object.
    CommandOptions options();
    /// Loads the inputs and exports the set. Throws `CommandFailure`.
    virtual ExportResult run() const = 0;

    /// Whether the result is to be reported as JSON.
    bool reportsAsJSON() const { return m_reportsAsJSON; }

protected:
    /// The options of this command alone.
    virtual CommandOptions ownOptions() = 0;
    /// The folder that is to receive the set's folder, as an absolute location.
    QUrl parentDirectory() const;

private:
    QString m_output;
    bool m_reportsAsJSON = false;
};

}  // namespace quarlin

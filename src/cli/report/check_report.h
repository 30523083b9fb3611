#pragma once

#include "check/finding.h"
#include "cli/base/exit_status.h"

#include <map>

namespace quarlin {

/// The findings on the set in one folder.
struct CheckedFolder {
    /// Absolute.
    QString path;
    Findings findings;
};

/// How many findings of each severity there are; a missing one is none.
using SeverityCounts = std::map<Severity, int>;

SeverityCounts countSeverities(const Findings& findings);

/// The folder in one line and a line for each finding.
QString folderText(const CheckedFolder& folder);
/// The same as one line of JSON.
QString folderLine(const CheckedFolder& folder);

/// The sum over `folders` folders.
QString checkSummaryText(int folders, const SeverityCounts& counts);
QString checkSummaryLine(int folders, const SeverityCounts& counts);

/// What the findings are worth: `failed` for an error, `someFailed` for a warning.
ExitStatus exitStatus(const SeverityCounts& counts);

}  // namespace quarlin

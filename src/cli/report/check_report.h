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

/// The number of findings by severity; 0 for a severity that is missing.
using SeverityCounts = std::map<Severity, int>;

SeverityCounts countSeverities(const Findings& findings);

/// The folder in one line and a line for each finding.
QString folderText(const CheckedFolder& folder);
/// The same as one line of JSON.
QString folderLine(const CheckedFolder& folder);

/// The summary of `folders` folders.
QString checkSummaryText(int folders, const SeverityCounts& counts);
QString checkSummaryLine(int folders, const SeverityCounts& counts);

/// The exit status for the findings: `failed` if there is an error, `onlyWarnings` if there is a warning,
/// else `done`.
ExitStatus exitStatus(const SeverityCounts& counts);

}  // namespace quarlin

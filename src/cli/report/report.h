#pragma once

#include "cli/batch/failure_details.h"
#include "cli/batch/set_job.h"
#include "model/export_result.h"

#include <QString>

namespace quarlin {

/// The path of the set's folder, without a slash at the end.
QString folderPath(const ExportResult& result);

/// What an export wrote: a line for the folder and one for each file.
QString textReport(const ExportResult& result);

/// A line for each note.
QString noteLines(const std::vector<SetNote>& notes);

/// The path and the reason of a failure as a line of its own; empty if neither is known.
QString reasonLine(const FailureDetails& details);

}  // namespace quarlin

#pragma once

#include "cli/batch/set_job.h"
#include "cli/batch/set_outcome.h"

#include <cstdint>
#include <map>

namespace quarlin {

// The report on several sets, as text and as lines of JSON. Every text ends with a line feed, unless it is
// empty.

/// What was written, or would be read and written.
QString setText(const SetJob& job, const SetOutcome& outcome);
/// Why the set failed; empty if it did not.
QString failureText(const SetJob& job, const SetOutcome& outcome);
QString setLine(const SetJob& job, const SetOutcome& outcome);

QString leftOutText(const UnusedFile& file);
QString leftOutLine(const UnusedFile& file);

/// How the sets of a run ended.
struct BatchCounts {
    /// The number of sets by status; 0 for a status that is missing.
    std::map<SetStatus, int> sets;
    std::int64_t leftOut = 0;

    int of(SetStatus status) const;
    int all() const;
};

/// With `isDryRun` it counts the sets that would be exported.
QString summaryText(const BatchCounts& counts, bool isDryRun);
QString summaryLine(const BatchCounts& counts);

}  // namespace quarlin

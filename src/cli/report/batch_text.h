#pragma once

#include "cli/batch/set_job.h"
#include "cli/batch/set_outcome.h"

#include <cstdint>
#include <map>

namespace quarlin {

// The words of a report on several sets, as text and as lines of JSON. Every text ends with a line feed,
// unless there is nothing to tell.

/// What was written, or would be read and written.
QString setText(const SetJob& job, const SetOutcome& outcome);
/// Why the set failed.
QString failureText(const SetJob& job, const SetOutcome& outcome);
QString setLine(const SetJob& job, const SetOutcome& outcome);

QString leftOutText(const LeftOutFile& file);
QString leftOutLine(const LeftOutFile& file);

/// How the sets of a run ended.
struct BatchCounts {
    /// The sets of each status; a missing one is none.
    std::map<SetStatus, int> sets;
    std::int64_t leftOut = 0;

    int of(SetStatus status) const;
    int all() const;
};

/// `isDryRun`: the sets are only to be exported.
QString summaryText(const BatchCounts& counts, bool isDryRun);
QString summaryLine(const BatchCounts& counts);

}  // namespace quarlin

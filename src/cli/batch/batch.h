#pragma once

#include "cli/batch/set_job.h"
#include "cli/exit_status.h"
#include "cli/report/batch_report.h"

namespace quarlin {

/// The number of sets that are worked on at the same time unless the user says otherwise. A set keeps all
/// cores busy for most of its time; a second one fills the rest, and more of them need memory rather than
/// save time.
inline constexpr int usualSetsAtOnce = 2;

/// Exports the sets of `plan`, `setsAtOnce` of them side by side, and reports each in the order of the plan
/// as soon as those before it are reported. A set that fails stops no other. Tells whether all, some or none
/// were exported; a plan without any set is a failure.
ExitStatus exportSets(const BatchPlan& plan, int setsAtOnce, BatchReport& report);

/// Reports what exporting the sets of `plan` would read and write. No pixel is read and nothing is written.
ExitStatus rehearseSets(const BatchPlan& plan, BatchReport& report);

}  // namespace quarlin

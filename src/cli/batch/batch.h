#pragma once

#include "cli/batch/set_job.h"
#include "cli/batch/set_outcome.h"

#include <functional>

namespace quarlin {

/// The default number of sets that are exported at the same time. One set keeps all cores busy for most of
/// its time, and a second one fills the gaps; more of them use memory without saving time.
inline constexpr int defaultSetsAtOnce = 2;
/// Enough for the largest machines, and few enough that a typing error does not exhaust the memory.
inline constexpr int mostSetsAtOnce = 64;

/// Is called once per set, in the order of the plan, from any thread but never from two at a time.
using OutcomeReceiver = std::function<void(const SetJob&, const SetOutcome&)>;

/// Exports the sets of `plan`, `setsAtOnce` of them at the same time. `receive` gets each outcome as soon as
/// those of the sets before it are known. A set that fails does not stop the others.
void exportSets(const BatchPlan& plan, int setsAtOnce, const OutcomeReceiver& receive);

/// Passes to `receive` what exporting the sets of `plan` would read and write. No pixels are read, and
/// nothing is written.
void dryRunSets(const BatchPlan& plan, const OutcomeReceiver& receive);

}  // namespace quarlin

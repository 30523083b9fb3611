#include "cli/batch/batch.h"

#include "cli/batch/interruption.h"
#include "cli/commands/command_failure.h"
#include "engine/base/texture_processor_error.h"
#include "imaging/base/parallel.h"
#include "imaging/files/file_bytes.h"

#include <mutex>
#include <new>
#include <optional>

namespace quarlin {

using namespace Qt::StringLiterals;

namespace {

SetOutcome outcomeOf(const SetJob& job) {
    if (!job.refusal.isEmpty()) {
        return SetOutcome::failed(job.refusal);
    }
    if (isInterrupted()) {
        return SetOutcome::notStarted();
    }
    try {
        return SetOutcome::exported(job.work());
    } catch (const CommandFailure& failure) {
        return SetOutcome::failed(failure.message());
    } catch (const std::bad_alloc&) {
        return SetOutcome::failed(u"Export failed: Not enough memory"_s);
    }
}

/// What can be told of a set without reading its inputs.
SetOutcome rehearsalOf(const SetJob& job) {
    if (!job.refusal.isEmpty()) {
        return SetOutcome::failed(job.refusal);
    }
    for (const SetInput& input : job.inputs) {
        const QUrl file = QUrl::fromLocalFile(input.path);
        if (!fileStamp(file)) {
            const auto error = TextureProcessorError::cannotReadImage(file);
            return SetOutcome::failed(CommandFailure(u"Load"_s, error).message());
        }
    }
    return SetOutcome::planned({job.folder, job.files});
}

/// Passes outcomes on in the order of the sets, whichever comes first.
class OrderedOutcomes {
public:
    OrderedOutcomes(const BatchPlan& plan, BatchReport& report)
        : m_plan(plan), m_report(report), m_outcomes(plan.sets.size()) {}

    void add(std::size_t index, SetOutcome outcome) {
        const std::lock_guard lock(m_mutex);
        m_outcomes[index] = std::move(outcome);
        while (m_next < m_outcomes.size() && m_outcomes[m_next]) {
            m_report.addSet(m_plan.sets[m_next], *m_outcomes[m_next]);
            ++m_next;
        }
    }

private:
    const BatchPlan& m_plan;
    BatchReport& m_report;
    std::mutex m_mutex;
    std::vector<std::optional<SetOutcome>> m_outcomes;
    std::size_t m_next = 0;
};

ExitStatus perform(const BatchPlan& plan, int setsAtOnce, BatchReport& report,
                   SetOutcome (*perform)(const SetJob&)) {
    report.begin(plan);
    OrderedOutcomes outcomes(plan, report);
    forEachInParallel(
        static_cast<std::int64_t>(plan.sets.size()),
        [&](std::int64_t set) {
            const auto index = static_cast<std::size_t>(set);
            outcomes.add(index, perform(plan.sets[index]));
        },
        static_cast<unsigned>(setsAtOnce));
    return report.end();
}

}  // namespace

ExitStatus exportSets(const BatchPlan& plan, int setsAtOnce, BatchReport& report) {
    return perform(plan, setsAtOnce, report, outcomeOf);
}

ExitStatus rehearseSets(const BatchPlan& plan, BatchReport& report) {
    return perform(plan, 1, report, rehearsalOf);
}

}  // namespace quarlin

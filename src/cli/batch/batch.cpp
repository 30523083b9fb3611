#include "cli/batch/batch.h"

#include "cli/batch/command_failure.h"
#include "cli/batch/interruption.h"
#include "cli/batch/update_record.h"
#include "engine/base/texture_processor_error.h"
#include "imaging/base/parallel.h"
#include "imaging/files/file_stamp.h"

#include <mutex>
#include <new>
#include <optional>

namespace quarlin {

using namespace Qt::StringLiterals;

namespace {

SetOutcome exportOf(const SetJob& job) {
    if (!job.skipsIfUpToDate) {
        return SetOutcome::exported(job.work());
    }
    if (isUpToDate(job)) {
        return SetOutcome::upToDate({job.folder, job.files});
    }
    // An input that changes meanwhile makes the record one of another state.
    const QByteArray record = updateRecord(job);
    SetOutcome outcome = SetOutcome::exported(job.work());
    writeUpdateRecord(job, record);
    return outcome;
}

SetOutcome outcomeOf(const SetJob& job) {
    if (!job.refusal.isEmpty()) {
        return SetOutcome::failed(job.refusal);
    }
    const SetInProgress progress(job.name);
    if (progress.isTooLate()) {
        return SetOutcome::notStarted();
    }
    try {
        return exportOf(job);
    } catch (const CommandFailure& failure) {
        return SetOutcome::failed(failure);
    } catch (const std::bad_alloc&) {
        return SetOutcome::failed(u"Export failed: "_s + outOfMemoryDescription(),
                                  {u"outOfMemory"_s, {}, {}});
    } catch (const std::exception& error) {
        // Such as a thread that the system refuses to start. The other sets have nothing to do with it.
        return SetOutcome::failed(u"Export failed: "_s + QString::fromLocal8Bit(error.what()),
                                  {u"systemError"_s, {}, {}});
    }
}

/// What is known of a set without reading its inputs.
SetOutcome dryRunOf(const SetJob& job) {
    if (!job.refusal.isEmpty()) {
        return SetOutcome::failed(job.refusal);
    }
    for (const SetInput& input : job.inputs) {
        const QUrl file = QUrl::fromLocalFile(input.path);
        if (!fileStamp(file)) {
            const auto error = TextureProcessorError::cannotReadImage(file);
            return SetOutcome::failed(
                CommandFailure(u"Load"_s, error.errorDescription(),
                               {u"notFound"_s, input.path, u"not found, or not a regular file"_s}));
        }
    }
    if (job.skipsIfUpToDate && isUpToDate(job)) {
        return SetOutcome::upToDate({job.folder, job.files});
    }
    return SetOutcome::planned({job.folder, job.files});
}

/// Passes outcomes on in the order of the plan, in whatever order they arrive.
class OrderedOutcomes {
public:
    OrderedOutcomes(const BatchPlan& plan, const OutcomeReceiver& receive)
        : m_plan(plan), m_receive(receive), m_outcomes(plan.sets.size()) {}

    void add(std::size_t index, SetOutcome outcome) {
        const std::lock_guard lock(m_mutex);
        m_outcomes[index] = std::move(outcome);
        while (m_next < m_outcomes.size() && m_outcomes[m_next]) {
            m_receive(m_plan.sets[m_next], *m_outcomes[m_next]);
            ++m_next;
        }
    }

private:
    const BatchPlan& m_plan;
    const OutcomeReceiver& m_receive;
    std::mutex m_mutex;
    std::vector<std::optional<SetOutcome>> m_outcomes;
    std::size_t m_next = 0;
};

void perform(const BatchPlan& plan, int setsAtOnce, const OutcomeReceiver& receive,
             SetOutcome (*work)(const SetJob&)) {
    OrderedOutcomes outcomes(plan, receive);
    // What is refused is known at once, and is reported before any set is written.
    std::size_t first = 0;
    while (first < plan.sets.size() && !plan.sets[first].refusal.isEmpty()) {
        outcomes.add(first, work(plan.sets[first]));
        ++first;
    }
    forEachInParallel(
        static_cast<std::int64_t>(plan.sets.size() - first),
        [&](std::int64_t set) {
            const std::size_t index = first + static_cast<std::size_t>(set);
            outcomes.add(index, work(plan.sets[index]));
        },
        static_cast<unsigned>(setsAtOnce));
}

}  // namespace

void exportSets(const BatchPlan& plan, int setsAtOnce, const OutcomeReceiver& receive) {
    perform(plan, setsAtOnce, receive, outcomeOf);
}

void dryRunSets(const BatchPlan& plan, const OutcomeReceiver& receive) {
    perform(plan, 1, receive, dryRunOf);
}

}  // namespace quarlin

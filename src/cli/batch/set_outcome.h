#pragma once

#include "cli/batch/command_failure.h"
#include "cli/batch/set_job.h"
#include "model/export_result.h"

#include <QString>

#include <utility>

namespace quarlin {

enum class SetStatus { exported, planned, upToDate, failed, notStarted };

/// How the work on one set ended.
struct SetOutcome {
    SetStatus status;
    /// What was written or would be; empty if the set failed or was not started.
    ExportResult result;
    /// Why it failed.
    QString failure;
    FailureDetails details = {};
    /// What became known while it was exported.
    std::vector<SetNote> notes = {};

    static SetOutcome exported(ExportedSet set) {
        return {SetStatus::exported, std::move(set.result), {}, {}, std::move(set.notes)};
    }
    static SetOutcome planned(ExportResult result) { return {SetStatus::planned, std::move(result), {}}; }
    static SetOutcome upToDate(ExportResult result) { return {SetStatus::upToDate, std::move(result), {}}; }
    static SetOutcome failed(const QString& failure, FailureDetails details = {u"refused"_s, {}, {}}) {
        return {SetStatus::failed, {}, failure, std::move(details)};
    }
    static SetOutcome failed(const CommandFailure& failure) {
        return failed(failure.message(), failure.details());
    }
    static SetOutcome notStarted() { return {SetStatus::notStarted, {}, {}}; }
};

}  // namespace quarlin

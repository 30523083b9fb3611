#pragma once

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

    static SetOutcome exported(ExportResult result) { return {SetStatus::exported, std::move(result), {}}; }
    static SetOutcome planned(ExportResult result) { return {SetStatus::planned, std::move(result), {}}; }
    static SetOutcome upToDate(ExportResult result) { return {SetStatus::upToDate, std::move(result), {}}; }
    static SetOutcome failed(const QString& failure) { return {SetStatus::failed, {}, failure}; }
    static SetOutcome notStarted() { return {SetStatus::notStarted, {}, {}}; }
};

}  // namespace quarlin

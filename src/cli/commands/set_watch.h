#pragma once

#include "cli/batch/batch.h"
#include "cli/report/batch_report.h"

#include <QHash>
#include <QSet>

#include <functional>

namespace quarlin {

/// Exports the sets of a plan, and each of them again whenever one of its inputs changes, comes or goes,
/// until the program is interrupted. A line is printed for each export.
///
/// A set is exported once its inputs have been the same for a moment and no program has one of them open for
/// writing. Files and folders are watched before they are looked at, so that no change is missed.
class SetWatch {
public:
    using MakePlan = std::function<BatchPlan()>;

    SetWatch(MakePlan makePlan, int setsAtOnce, bool isJSON)
        : m_makePlan(std::move(makePlan)), m_setsAtOnce(setsAtOnce), m_isJSON(isJSON) {}

    /// Returns after an interruption. Throws what making a plan throws.
    void run();

private:
    /// Exports what is ready. Returns whether a set still has to wait. `watch` is called with the files and
    /// folders to watch, and returns whether one is new.
    bool exportReadySets(const std::function<bool(const QStringList&)>& watch);
    bool isReady(const SetJob& job, const QByteArray& record);
    void report(const SetJob& job, const SetOutcome& outcome) const;
    void reportUnused(const BatchPlan& plan);

    MakePlan m_makePlan;
    int m_setsAtOnce;
    bool m_isJSON;
    /// The record of each set, by its folder, when it was last looked at, and when it was last exported.
    QHash<QString, QByteArray> m_seen;
    QHash<QString, QByteArray> m_exported;
    QSet<QString> m_reported;
};

}  // namespace quarlin

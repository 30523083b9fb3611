#include "cli/commands/export_command.h"

#include "cli/base/local_file.h"
#include "cli/base/print.h"
#include "cli/batch/batch.h"
#include "cli/batch/command_failure.h"
#include "cli/batch/interruption.h"
#include "cli/batch/update_record.h"
#include "cli/commands/input_formats.h"
#include "cli/commands/set_watch.h"
#include "cli/options/usage_error.h"
#include "cli/report/batch_report.h"
#include "cli/report/report.h"
#include "model/export_result.h"

#include <algorithm>

namespace quarlin {

using namespace Qt::StringLiterals;

namespace {

constexpr SettingRange<int> setsAtOnceRange{1, mostSetsAtOnce};

bool hasStrictFailure(const BatchPlan& plan) {
    return std::any_of(plan.unused.begin(), plan.unused.end(),
                       [](const UnusedFile& file) { return tableRow(file.reason).isFailureIfStrict; });
}

}  // namespace

QStringList ExportCommand::remarks() const {
    QStringList remarks = ownRemarks() + QStringList{inputFormats()};
    remarks +=
        u"Several sets are exported at the same time and reported one after the other, with a summary "
        "at the end. A set that fails does not stop the others. Two sets that would go to the same "
        "folder are both refused, before anything is written; --keep-tree keeps them apart if their "
        "textures are in different folders. After an interruption (Ctrl-C), the sets in progress are "
        "named and finished, and no more are started; a second interruption ends the program at once."_s;
    remarks +=
        u"With --json, each line of the report is one object, whose \"type\" is \"leftOut\" for a file that "
        "no set uses, \"set\", and at the end \"summary\". A set has \"status\", \"name\", \"folder\", "
        "\"files\", \"inputs\", \"notes\" and \"error\", however it ended, and \"version\" is the number "
        "of this contract."_s;
    remarks +=
        u"With --update, a set is skipped if all its files are there, newer than its textures, and were made "
        "from them with the same settings by the same version, also with --update. What a set was made from "
        "is kept in its folder, in the hidden file "_s +
        updateRecordName() + u"."_s;
    remarks +=
        u"With --watch, a line is printed for each set that is exported. A set is exported once its textures "
        "have been the same for a moment and no program has one of them open for writing."_s;
    return remarks + FolderSources::remarks();
}

CommandOptions ExportCommand::options() {
    CommandOptions all = ownOptions();
    all.push_back(
        required(pathOption(u"output"_s, u"DIR"_s, u"the folder in which each set's own folder is made"_s,
                            ValueKind::folder, m_output)));
    m_folders.addOptions(all);
    all.push_back(switchOption(u"update"_s, u"skip sets that are up to date"_s, m_isUpdate, true));
    all.push_back(countOption(u"jobs"_s, u"number of sets that are exported at the same time"_s, m_setsAtOnce,
                              setsAtOnceRange));
    all.push_back(
        switchOption(u"dry-run"_s, u"only report what would be read and written"_s, m_isDryRun, true));
    all.push_back(switchOption(u"watch"_s,
                               u"export, and export a set again when one of its textures changes, until "
                               "Ctrl-C"_s,
                               m_isWatching, true));
    all.push_back(switchOption(u"json"_s, u"print the report as JSON"_s, m_reportsAsJSON, true));
    return all;
}

std::vector<ExitMeaning> ExportCommand::exitMeanings() const {
    return {{ExitStatus::done, u"every set was exported"_s},
            {ExitStatus::failed, u"no set was exported"_s},
            {ExitStatus::usageError, u"usage error; nothing was done"_s},
            {ExitStatus::someSetsFailed, u"some sets were exported, others failed"_s},
            {ExitStatus::notReported, u"sets were exported, but the report could not be printed"_s},
            {ExitStatus::interrupted, u"interrupted by Ctrl-C; the sets in progress were finished"_s}};
}

ExitStatus ExportCommand::run() const {
    deferInterruption();
    if (m_isWatching) {
        if (m_isDryRun || m_folders.isStrict()) {
            throw UsageError(u"--watch can't be combined with --dry-run or --strict"_s);
        }
        SetWatch([this] { return plan(); }, m_setsAtOnce, m_reportsAsJSON).run();
        return ExitStatus::done;
    }
    if (const std::optional<SetJob> single = singleSet();
        single && !m_isDryRun && !m_isUpdate && !m_reportsAsJSON) {
        const SetInProgress progress(single->name);
        if (progress.isTooLate()) {
            return ExitStatus::interrupted;
        }
        const ExportedSet set = single->work();
        return print(textReport(set.result) + noteLines(set.notes));
    }
    return exportPlan(plan());
}

BatchPlan ExportCommand::plan() const {
    const std::optional<SetJob> single = singleSet();
    BatchPlan plan = single ? BatchPlan{{*single}, {}, {}} : severalSets();
    if (m_name && plan.sets.size() > 1) {
        throw UsageError(u"--name is for a single set, but there are "_s + QString::number(plan.sets.size()));
    }
    for (SetJob& job : plan.sets) {
        job.skipsIfUpToDate = m_isUpdate;
    }
    refuseCollisions(plan);
    return plan;
}

ExitStatus ExportCommand::exportPlan(const BatchPlan& plan) const {
    BatchReport report({.isJSON = m_reportsAsJSON, .isDryRun = m_isDryRun});
    report.begin(plan);
    const auto addSet = [&](const SetJob& job, const SetOutcome& outcome) { report.addSet(job, outcome); };
    if (m_folders.isStrict() && hasStrictFailure(plan)) {
        for (const SetJob& job : plan.sets) {
            addSet(job, job.refusal.isEmpty() ? SetOutcome::notStarted() : SetOutcome::failed(job.refusal));
        }
        report.end();
        throw CommandFailure(u"Export"_s, u"pictures are left out, which --strict does not allow"_s);
    }
    if (m_isDryRun) {
        dryRunSets(plan, addSet);
    } else {
        exportSets(plan, m_setsAtOnce, addSet);
    }
    return report.end();
}

QUrl ExportCommand::parentDirectory() const { return localFile(m_output); }

}  // namespace quarlin

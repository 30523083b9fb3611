#include "cli/commands/export_command.h"

#include "cli/base/local_file.h"
#include "cli/base/print.h"
#include "cli/batch/batch.h"
#include "cli/batch/command_failure.h"
#include "cli/batch/interruption.h"
#include "cli/options/usage_error.h"
#include "cli/report/batch_report.h"
#include "cli/report/report.h"
#include "model/export_result.h"

namespace quarlin {

using namespace Qt::StringLiterals;

namespace {

/// Enough for the largest machines, and few enough that a typing error does not exhaust the memory.
constexpr SettingRange<int> setsAtOnceRange{1, 64};

}  // namespace

QStringList ExportCommand::remarks() const {
    QStringList remarks = ownRemarks();
    remarks +=
        u"Several sets are exported at the same time and reported one after the other, with a summary "
        "at the end. A set that fails does not stop the others. Two sets that would go to the same "
        "folder are both refused. After an interruption (Ctrl-C), the sets in progress are finished "
        "and no more are started; a second interruption ends the program at once."_s;
    remarks +=
        u"With --json, each line of the report is one object, whose \"type\" is \"leftOut\" for a file that "
        "belongs to no set, \"set\", and at the end \"summary\". A set has \"status\", \"name\", \"folder\", "
        "\"files\", \"inputs\", \"notes\" and \"error\", however it ended, and \"version\" is the number "
        "of this contract."_s;
    return remarks;
}

CommandOptions ExportCommand::options() {
    CommandOptions all = ownOptions();
    all.push_back(
        required(pathOption(u"output"_s, u"DIR"_s, u"the folder in which each set's own folder is made"_s,
                            ValueKind::folder, m_output)));
    all.push_back(switchOption(u"recursive"_s,
                               u"also search the folders inside a folder, except that of --output"_s,
                               m_isRecursive, true));
    all.push_back(countOption(u"jobs"_s, u"number of sets that are exported at the same time"_s, m_setsAtOnce,
                              setsAtOnceRange));
    all.push_back(
        switchOption(u"dry-run"_s, u"only report what would be read and written"_s, m_isDryRun, true));
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
    const std::optional<SetJob> single = singleSet();
    deferInterruption();
    if (single && !m_isDryRun && !m_reportsAsJSON) {
        const ExportedSet set = single->work();
        return print(textReport(set.result) + noteLines(set.notes));
    }
    BatchPlan plan = single ? BatchPlan{{*single}, {}} : severalSets();
    if (m_name && plan.sets.size() > 1) {
        throw UsageError(u"--name is for a single set, but there are "_s + QString::number(plan.sets.size()));
    }
    refuseCollisions(plan);
    BatchReport report({.isJSON = m_reportsAsJSON, .isDryRun = m_isDryRun});
    report.begin(plan);
    const auto addSet = [&](const SetJob& job, const SetOutcome& outcome) { report.addSet(job, outcome); };
    if (m_isDryRun) {
        dryRunSets(plan, addSet);
    } else {
        exportSets(plan, m_setsAtOnce, addSet);
    }
    return report.end();
}

QUrl ExportCommand::parentDirectory() const { return localFile(m_output); }

std::vector<TextureFolder> ExportCommand::textureFolders(const QString& path, BatchPlan& plan) const {
    const Depth depth = m_isRecursive ? Depth::withSubfolders : Depth::folderAlone;
    try {
        return findTextures(localFile(path).toLocalFile(), {depth, parentDirectory().toLocalFile()});
    } catch (const TextureSearchError& error) {
        plan.sets.push_back(refusedJob(path, CommandFailure(u"Load"_s, error.reason()).message()));
        return {};
    }
}

}  // namespace quarlin

#include "cli/commands/export_command.h"

#include "cli/batch/batch.h"
#include "cli/batch/interruption.h"
#include "cli/local_file.h"
#include "cli/options/usage_error.h"
#include "cli/report/print.h"
#include "cli/report/report.h"
#include "model/export_result.h"

namespace quarlin {

using namespace Qt::StringLiterals;

namespace {

/// Enough for the largest machines, and few enough that a slip of the hand does not exhaust the memory.
constexpr SettingRange<int> setsAtOnceRange{1, 64};

}  // namespace

QStringList ExportCommand::remarks() const {
    return ownRemarks() +
           QStringList{
               u"Several sets are exported side by side and reported one after the other, with a summary "
               "at the end. A set that fails stops no other. Two that would write into the same folder "
               "are both refused. Interrupted (Ctrl-C), the sets at work are completed and no other is "
               "begun; a second interruption ends the program at once."_s,
               u"With --json a single set is reported as one object with \"folder\" and \"files\". "
               "Several sets are reported as one object per line, told apart by \"type\": \"leftOut\" "
               "for a file that goes into no set, \"set\", and at the end \"summary\"."_s,
           };
}

CommandOptions ExportCommand::options() {
    CommandOptions all = ownOptions();
    all.push_back(
        required(pathOption(u"output"_s, u"DIR"_s, u"folder in which the set's own folder is made"_s,
                            ValueKind::folder, m_output)));
    all.push_back(switchOption(u"recursive"_s,
                               u"search the folders inside a folder too, but not that of --output"_s,
                               m_isRecursive, true));
    all.push_back(
        countOption(u"jobs"_s, u"sets that are worked on at the same time"_s, m_setsAtOnce, setsAtOnceRange));
    all.push_back(switchOption(u"dry-run"_s, u"tell what would be read and written, and do nothing"_s,
                               m_isDryRun, true));
    all.push_back(
        switchOption(u"json"_s, u"report folder and files as one JSON object"_s, m_reportsAsJSON, true));
    return all;
}

std::vector<ExitMeaning> ExportCommand::exitMeanings() const {
    return {{ExitStatus::done, u"every set was exported"_s},
            {ExitStatus::workFailed, u"no set was exported"_s},
            {ExitStatus::wordsAreOff, u"the command line is off; nothing was done"_s},
            {ExitStatus::someFailed, u"some sets were exported, others failed"_s}};
}

ExitStatus ExportCommand::run() const {
    const std::optional<SetJob> single = singleSet();
    deferInterruption();
    if (single && !m_isDryRun) {
        const ExportResult result = single->work();
        return print(m_reportsAsJSON ? jsonReport(result) : textReport(result));
    }
    BatchPlan plan = single ? BatchPlan{{*single}, {}} : severalSets();
    if (m_name && plan.sets.size() > 1) {
        throw UsageError(u"--name is for one set, and here are "_s + QString::number(plan.sets.size()));
    }
    refuseCollisions(plan);
    BatchReport report({.isJSON = m_reportsAsJSON, .isRehearsal = m_isDryRun});
    return m_isDryRun ? rehearseSets(plan, report) : exportSets(plan, m_setsAtOnce, report);
}

QUrl ExportCommand::parentDirectory() const { return localFile(m_output); }

TextureSearch ExportCommand::search() const {
    return {m_isRecursive ? Depth::withSubfolders : Depth::folderAlone, m_output};
}

}  // namespace quarlin

#include "export_command.h"

#include "batch.h"
#include "interruption.h"
#include "local_file.h"
#include "print.h"
#include "report.h"
#include "usage_error.h"

namespace quarlin {

namespace {

/// Enough for the largest machines, and few enough that a slip of the hand does not exhaust the memory.
constexpr SettingRange<int> setsAtOnceRange{1, 64};

}  // namespace

QStringList ExportCommand::remarks() const {
    return ownRemarks() +
           QStringList{
               QStringLiteral(
                   "Several sets are exported side by side and reported one after the other, with a summary "
                   "at the end. A set that fails stops no other. Two that would write into the same folder "
                   "are both refused. Interrupted (Ctrl-C), the sets at work are completed and no other is "
                   "begun; a second interruption ends the program at once."),
               QStringLiteral(
                   "With --json a single set is reported as one object with \"folder\" and \"files\". "
                   "Several sets are reported as one object per line, told apart by \"type\": \"leftOut\" "
                   "for a file that goes into no set, \"set\", and at the end \"summary\"."),
           };
}

CommandOptions ExportCommand::options() {
    CommandOptions all = ownOptions();
    all.push_back(required(pathOption(QStringLiteral("output"), QStringLiteral("DIR"),
                                      QStringLiteral("folder in which the set's own folder is made"),
                                      ValueKind::folder, m_output)));
    all.push_back(
        switchOption(QStringLiteral("recursive"),
                     QStringLiteral("search the folders inside a folder too, but not that of --output"),
                     m_isRecursive, true));
    all.push_back(countOption(QStringLiteral("jobs"),
                              QStringLiteral("sets that are worked on at the same time"), m_setsAtOnce,
                              setsAtOnceRange));
    all.push_back(switchOption(QStringLiteral("dry-run"),
                               QStringLiteral("tell what would be read and written, and do nothing"),
                               m_isDryRun, true));
    all.push_back(switchOption(QStringLiteral("json"),
                               QStringLiteral("report folder and files as one JSON object"), m_reportsAsJSON,
                               true));
    return all;
}

std::vector<ExitMeaning> ExportCommand::exitMeanings() const {
    return {{ExitStatus::done, QStringLiteral("every set was exported")},
            {ExitStatus::workFailed, QStringLiteral("no set was exported")},
            {ExitStatus::wordsAreOff, QStringLiteral("the command line is off; nothing was done")},
            {ExitStatus::someFailed, QStringLiteral("some sets were exported, others failed")}};
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
        throw UsageError(QStringLiteral("--name is for one set, and here are ") +
                         QString::number(plan.sets.size()));
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

#include "cli/commands/check_command.h"

#include "check/set_check.h"
#include "cli/base/local_file.h"
#include "cli/base/print.h"
#include "cli/report/check_report.h"

#include <QFileInfo>

#include <utility>

namespace quarlin {

using namespace Qt::StringLiterals;

QString CheckCommand::summary() const {
    return u"Reads exported sets back and reports what would go wrong on upload."_s;
}

QStringList CheckCommand::remarks() const {
    QStringList remarks{
        u"A set is read as an uploader reads it: from its .gltf or .glb, or if there is none, by the names "
        "of its files. Each finding has a severity and an identifier that never changes. With --json, "
        "each folder is one object on a line of its own, and the last line is a summary."_s,
        u"Whether the green of a normal map is inverted is determined from the map alone: it contains "
        "the slopes of a surface, which only fit together if green points the right way. Nothing is "
        "reported for a map that fits neither way."_s,
    };
    for (const Severity severity : {Severity::error, Severity::warning, Severity::note}) {
        QStringList kinds;
        for (const auto& row : EnumerationTable<FindingKind>::rows) {
            if (row.severity == severity) {
                kinds += QString(row.rawValue) + u" ("_s + row.title + u')';
            }
        }
        remarks += title(severity) + u": "_s + kinds.join(u"; "_s) + u'.';
    }
    return remarks;
}

CommandOptions CheckCommand::options() {
    return {required(pathsOption({}, u"SET"_s, u"the folder of an exported set, a .gltf or a .glb"_s,
                                 ValueKind::fileOrFolder, m_paths)),
            switchOption(u"recursive"_s, u"check every set at or below a folder"_s, m_isRecursive, true),
            switchOption(u"json"_s, u"print the report as lines of JSON"_s, m_reportsAsJSON, true)};
}

std::vector<ExitMeaning> CheckCommand::exitMeanings() const {
    return {{ExitStatus::done, u"nothing worse than a note was found"_s},
            {ExitStatus::failed, u"there are errors"_s},
            {ExitStatus::usageError, u"usage error; nothing was checked"_s},
            {ExitStatus::onlyWarnings, u"there are warnings, but no errors"_s},
            {ExitStatus::notReported, u"the report could not be printed"_s}};
}

std::vector<QUrl> CheckCommand::setsAt(const QUrl& location) const {
    std::vector<QUrl> sets;
    if (m_isRecursive && QFileInfo(location.toLocalFile()).isDir()) {
        sets = findSets(location);
    }
    // Without any, the check of the location itself says so.
    return sets.empty() ? std::vector<QUrl>{location} : sets;
}

ExitStatus CheckCommand::run() const {
    SeverityCounts counts;
    int folders = 0;
    for (const QString& typed : m_paths) {
        bool hasGreenNote = false;
        for (const QUrl& location : setsAt(localFile(typed))) {
            CheckedFolder folder{location.toLocalFile(), checkSet(location)};
            // Said once, it is known of all sets of a folder.
            std::erase_if(folder.findings, [&](const Finding& finding) {
                return finding.kind == FindingKind::normalGreenDown && std::exchange(hasGreenNote, true);
            });
            for (const auto& [severity, count] : countSeverities(folder.findings)) {
                counts[severity] += count;
            }
            ++folders;
            if (print(m_reportsAsJSON ? folderLine(folder) : folderText(folder)) != ExitStatus::done) {
                return ExitStatus::notReported;
            }
        }
    }
    const ExitStatus printed =
        print(m_reportsAsJSON ? checkSummaryLine(folders, counts) : checkSummaryText(folders, counts));
    return printed == ExitStatus::done ? exitStatus(counts) : printed;
}

}  // namespace quarlin

#include "check_command.h"

#include "check_report.h"
#include "local_file.h"
#include "print.h"
#include "set_check.h"

namespace quarlin {

QString CheckCommand::summary() const {
    return QStringLiteral("Reads exported sets back and tells what would go wrong on upload.");
}

QStringList CheckCommand::remarks() const {
    QStringList remarks{
        QStringLiteral(
            "A set is read as an uploader reads it: from its .gltf, or where there is none by the names "
            "of its files. Each finding has a severity and an identifier that never changes; with "
            "--json there is one object per folder and a summary, each on a line."),
        QStringLiteral(
            "Whether the green of a normal map is inverted is told from the map alone. It holds the "
            "slopes of a surface, and these only fit together when green points the right way. Of a "
            "map that fits neither way nothing is said."),
    };
    for (const Severity severity : {Severity::error, Severity::warning, Severity::note}) {
        QStringList kinds;
        for (const auto& row : EnumerationTable<FindingKind>::rows) {
            if (row.severity == severity) {
                kinds += QString(row.rawValue) + QStringLiteral(" (") + row.title + u')';
            }
        }
        remarks += title(severity) + QStringLiteral(": ") + kinds.join(QStringLiteral("; ")) + u'.';
    }
    return remarks;
}

CommandOptions CheckCommand::options() {
    return {
        required(pathsOption({}, QStringLiteral("FOLDER"), QStringLiteral("the folder of an exported set"),
                             ValueKind::folder, m_folders)),
        switchOption(QStringLiteral("json"), QStringLiteral("report lines of JSON"), m_reportsAsJSON, true)};
}

std::vector<ExitMeaning> CheckCommand::exitMeanings() const {
    return {{ExitStatus::done, QStringLiteral("nothing worse than a note was found")},
            {ExitStatus::workFailed, QStringLiteral("there are errors")},
            {ExitStatus::wordsAreOff, QStringLiteral("the command line is off; nothing was checked")},
            {ExitStatus::someFailed, QStringLiteral("there are warnings, but no errors")}};
}

ExitStatus CheckCommand::run() const {
    SeverityCounts counts;
    for (const QString& typed : m_folders) {
        const QUrl location = localFile(typed);
        const CheckedFolder folder{location.toLocalFile(), checkSet(location)};
        for (const auto& [severity, count] : countSeverities(folder.findings)) {
            counts[severity] += count;
        }
        if (print(m_reportsAsJSON ? folderLine(folder) : folderText(folder)) != ExitStatus::done) {
            return ExitStatus::workFailed;
        }
    }
    const int folders = static_cast<int>(m_folders.size());
    const ExitStatus printed =
        print(m_reportsAsJSON ? checkSummaryLine(folders, counts) : checkSummaryText(folders, counts));
    return printed == ExitStatus::done ? exitStatus(counts) : printed;
}

}  // namespace quarlin

#include "check_report.h"

#include "json_line.h"

namespace quarlin {

namespace {

QString counted(int count, const QString& noun) {
    return QString::number(count) + u' ' + noun + (count == 1 ? QString() : QStringLiteral("s"));
}

int countOf(const SeverityCounts& counts, Severity severity) {
    const auto found = counts.find(severity);
    return found == counts.end() ? 0 : found->second;
}

void addCounts(JsonLine& line, const SeverityCounts& counts) {
    line.add(QStringLiteral("errors"), std::int64_t{countOf(counts, Severity::error)})
        .add(QStringLiteral("warnings"), std::int64_t{countOf(counts, Severity::warning)})
        .add(QStringLiteral("notes"), std::int64_t{countOf(counts, Severity::note)});
}

}  // namespace

SeverityCounts countSeverities(const Findings& findings) {
    SeverityCounts counts;
    for (const Finding& finding : findings) {
        ++counts[severity(finding.kind)];
    }
    return counts;
}

QString folderText(const CheckedFolder& folder) {
    QString text = folder.path + u'\n';
    for (const Finding& finding : folder.findings) {
        text += QStringLiteral("  ") + title(severity(finding.kind)) + QStringLiteral(": ") +
                (finding.file.isEmpty() ? QString() : finding.file + QStringLiteral(": ")) + finding.text +
                QStringLiteral(" [") + rawValue(finding.kind) + QStringLiteral("]\n");
    }
    return text;
}

QString folderLine(const CheckedFolder& folder) {
    std::vector<JsonLine> findings;
    for (const Finding& finding : folder.findings) {
        findings.push_back(JsonLine()
                               .add(QStringLiteral("severity"), rawValue(severity(finding.kind)))
                               .add(QStringLiteral("identifier"), rawValue(finding.kind))
                               .add(QStringLiteral("file"), finding.file)
                               .add(QStringLiteral("text"), finding.text));
    }
    JsonLine line;
    line.add(QStringLiteral("type"), QStringLiteral("folder"))
        .add(QStringLiteral("folder"), folder.path)
        .add(QStringLiteral("findings"), findings);
    addCounts(line, countSeverities(folder.findings));
    return line.text() + u'\n';
}

QString checkSummaryText(int folders, const SeverityCounts& counts) {
    return counted(folders, QStringLiteral("folder")) + QStringLiteral(" checked: ") +
           counted(countOf(counts, Severity::error), QStringLiteral("error")) + QStringLiteral(", ") +
           counted(countOf(counts, Severity::warning), QStringLiteral("warning")) + QStringLiteral(", ") +
           counted(countOf(counts, Severity::note), QStringLiteral("note")) + u'\n';
}

QString checkSummaryLine(int folders, const SeverityCounts& counts) {
    JsonLine line;
    line.add(QStringLiteral("type"), QStringLiteral("summary"))
        .add(QStringLiteral("folders"), std::int64_t{folders});
    addCounts(line, counts);
    return line.text() + u'\n';
}

ExitStatus exitStatus(const SeverityCounts& counts) {
    if (countOf(counts, Severity::error) > 0) {
        return ExitStatus::workFailed;
    }
    return countOf(counts, Severity::warning) > 0 ? ExitStatus::someFailed : ExitStatus::done;
}

}  // namespace quarlin

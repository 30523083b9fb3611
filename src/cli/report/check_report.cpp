#include "cli/report/check_report.h"

#include "cli/base/printable.h"
#include "cli/report/counted.h"
#include "cli/report/json_line.h"

namespace quarlin {

using namespace Qt::StringLiterals;

namespace {

int countOf(const SeverityCounts& counts, Severity severity) {
    const auto found = counts.find(severity);
    return found == counts.end() ? 0 : found->second;
}

void addCounts(JsonLine& line, const SeverityCounts& counts) {
    line.add(u"errors"_s, std::int64_t{countOf(counts, Severity::error)})
        .add(u"warnings"_s, std::int64_t{countOf(counts, Severity::warning)})
        .add(u"notes"_s, std::int64_t{countOf(counts, Severity::note)});
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
    QString text = printable(folder.path) + u'\n';
    for (const Finding& finding : folder.findings) {
        text += printable(u"  "_s + title(severity(finding.kind)) + u": "_s +
                          (finding.file.isEmpty() ? QString() : finding.file + u": "_s) + finding.text +
                          u" ["_s + rawValue(finding.kind) + u']') +
                u'\n';
    }
    return text;
}

QString folderLine(const CheckedFolder& folder) {
    std::vector<JsonLine> findings;
    for (const Finding& finding : folder.findings) {
        findings.push_back(JsonLine()
                               .add(u"severity"_s, rawValue(severity(finding.kind)))
                               .add(u"identifier"_s, rawValue(finding.kind))
                               .add(u"file"_s, finding.file)
                               .add(u"text"_s, finding.text));
    }
    JsonLine line;
    line.add(u"type"_s, u"folder"_s).add(u"folder"_s, folder.path).add(u"findings"_s, findings);
    addCounts(line, countSeverities(folder.findings));
    return line.text() + u'\n';
}

QString checkSummaryText(int folders, const SeverityCounts& counts) {
    return counted(folders, u"folder"_s) + u" checked: "_s +
           counted(countOf(counts, Severity::error), u"error"_s) + u", "_s +
           counted(countOf(counts, Severity::warning), u"warning"_s) + u", "_s +
           counted(countOf(counts, Severity::note), u"note"_s) + u'\n';
}

QString checkSummaryLine(int folders, const SeverityCounts& counts) {
    JsonLine line;
    line.add(u"type"_s, u"summary"_s).add(u"folders"_s, std::int64_t{folders});
    addCounts(line, counts);
    return line.text() + u'\n';
}

ExitStatus exitStatus(const SeverityCounts& counts) {
    if (countOf(counts, Severity::error) > 0) {
        return ExitStatus::failed;
    }
    return countOf(counts, Severity::warning) > 0 ? ExitStatus::onlyWarnings : ExitStatus::done;
}

}  // namespace quarlin

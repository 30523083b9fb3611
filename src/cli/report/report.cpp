#include "cli/report/report.h"

#include "cli/base/printable.h"

namespace quarlin {

using namespace Qt::StringLiterals;

QString folderPath(const ExportResult& result) {
    return result.folderURL.adjusted(QUrl::StripTrailingSlash).toLocalFile();
}

QString textReport(const ExportResult& result) {
    QString report = u"Export complete: "_s + printable(folderPath(result)) + u'\n';
    for (const QString& file : result.files) {
        report += u"Wrote "_s + printable(file) + u'\n';
    }
    return report;
}

QString noteLines(const std::vector<SetNote>& notes) {
    QString lines;
    for (const SetNote& note : notes) {
        lines += u"Note: "_s + printable(note.text) + u'\n';
    }
    return lines;
}

QString reasonLine(const FailureDetails& details) {
    if (details.path.isEmpty() && details.reason.isEmpty()) {
        return {};
    }
    const QString separator = details.path.isEmpty() || details.reason.isEmpty() ? QString() : u": "_s;
    return u"  "_s + printable(details.path + separator + details.reason) + u'\n';
}

}  // namespace quarlin

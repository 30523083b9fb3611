#include "cli/report/report.h"

#include "cli/report/json_line.h"

namespace quarlin {

using namespace Qt::StringLiterals;

QString folderPath(const ExportResult& result) {
    return result.folderURL.adjusted(QUrl::StripTrailingSlash).toLocalFile();
}

QString textReport(const ExportResult& result) {
    QString report = u"Export complete: "_s + folderPath(result) + u'\n';
    for (const QString& file : result.files) {
        report += u"Wrote "_s + file + u'\n';
    }
    return report;
}

QString jsonReport(const ExportResult& result) {
    return JsonLine().add(u"folder"_s, folderPath(result)).add(u"files"_s, result.files).text() + u'\n';
}

}  // namespace quarlin

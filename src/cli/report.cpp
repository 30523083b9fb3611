#include "report.h"

#include "json_line.h"

namespace quarlin {

QString folderPath(const ExportResult& result) {
    return result.folderURL.adjusted(QUrl::StripTrailingSlash).toLocalFile();
}

QString textReport(const ExportResult& result) {
    QString report = QStringLiteral("Export complete: ") + folderPath(result) + u'\n';
    for (const QString& file : result.files) {
        report += QStringLiteral("Wrote ") + file + u'\n';
    }
    return report;
}

QString jsonReport(const ExportResult& result) {
    return JsonLine()
               .add(QStringLiteral("folder"), folderPath(result))
               .add(QStringLiteral("files"), result.files)
               .text() +
           u'\n';
}

}  // namespace quarlin

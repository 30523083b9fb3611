#include "report.h"

#include <QJsonArray>
#include <QJsonDocument>

namespace quarlin {

namespace {

QString folderPath(const ExportResult& result) {
    return result.folderURL.adjusted(QUrl::StripTrailingSlash).toLocalFile();
}

/// `text` in quotes and escaped: an array of it without the brackets.
QString quoted(const QString& text) {
    const QByteArray array = QJsonDocument(QJsonArray{text}).toJson(QJsonDocument::Compact);
    return QString::fromUtf8(array.mid(1, array.size() - 2));
}

}  // namespace

QString textReport(const ExportResult& result) {
    QString report = QStringLiteral("Export complete: ") + folderPath(result) + u'\n';
    for (const QString& file : result.files) {
        report += QStringLiteral("Wrote ") + file + u'\n';
    }
    return report;
}

QString jsonReport(const ExportResult& result) {
    QStringList files;
    for (const QString& file : result.files) {
        files += quoted(file);
    }
    return QStringLiteral("{\"folder\": ") + quoted(folderPath(result)) + QStringLiteral(", \"files\": [") +
           files.join(QStringLiteral(", ")) + QStringLiteral("]}\n");
}

}  // namespace quarlin

#include "file_names.h"

#include <QDir>

namespace quarlin {

QString lastPathComponent(const QUrl& url) {
    return QDir::cleanPath(url.toLocalFile()).section(u'/', -1);
}

QString fileStem(const QUrl& url) {
    const QString name = lastPathComponent(url);
    const qsizetype dot = name.lastIndexOf(u'.');
    return dot > 0 ? name.left(dot) : name;
}

QUrl fileIn(const QUrl& folder, const QString& name) {
    return QUrl::fromLocalFile(QDir(folder.toLocalFile()).filePath(name));
}

}  // namespace quarlin

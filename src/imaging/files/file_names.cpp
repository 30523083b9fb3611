#include "imaging/files/file_names.h"

#include <QDir>
#include <QFile>

namespace quarlin {

QString lastPathComponent(const QUrl& url) { return QDir::cleanPath(url.toLocalFile()).section(u'/', -1); }

QString fileStem(const QUrl& url) {
    const QString name = lastPathComponent(url);
    const qsizetype dot = name.lastIndexOf(u'.');
    return dot > 0 ? name.left(dot) : name;
}

QUrl fileIn(const QUrl& folder, const QString& name) {
    return QUrl::fromLocalFile(QDir(folder.toLocalFile()).filePath(name));
}

std::filesystem::path localPath(const QUrl& url) {
#ifdef Q_OS_WIN
    return url.toLocalFile().toStdWString();
#else
    return QFile::encodeName(url.toLocalFile()).toStdString();
#endif
}

}  // namespace quarlin

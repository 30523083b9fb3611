#include "imaging/files/file_names.h"

#include <QDir>
#include <QFile>

#include <system_error>
#include <utility>
#include <vector>

namespace quarlin {

namespace {

/// The entry of `folder` whose name has the text `name`; an empty path if there is none or several.
std::filesystem::path entryWithText(const std::filesystem::path& folder, const QString& name) {
    std::vector<std::filesystem::path> found;
    std::error_code failure;
    for (auto entry = std::filesystem::directory_iterator(folder, failure);
         !failure && entry != std::filesystem::directory_iterator(); entry.increment(failure)) {
        if (nameText(entry->path().filename()) == name) {
            found.push_back(entry->path());
        }
    }
    return found.size() == 1 ? found.front() : std::filesystem::path();
}

}  // namespace

QString nameText(const std::filesystem::path& name) {
#ifdef Q_OS_WIN
    return QString::fromStdWString(name.wstring());
#else
    return QFile::decodeName(QByteArray::fromStdString(name.string()));
#endif
}

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

std::filesystem::path existingPath(const QUrl& url) {
    std::filesystem::path path = localPath(url);
    std::error_code failure;
    if (!url.toLocalFile().contains(QChar::ReplacementCharacter) || std::filesystem::exists(path, failure)) {
        return path;
    }
    std::filesystem::path found = path.root_path();
    for (const std::filesystem::path& name : path.relative_path()) {
        std::filesystem::path next = found / name;
        if (!std::filesystem::exists(next, failure)) {
            next = entryWithText(found, nameText(name));
        }
        if (next.empty()) {
            return path;
        }
        found = std::move(next);
    }
    return found;
}

}  // namespace quarlin

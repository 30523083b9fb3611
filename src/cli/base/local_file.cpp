#include "cli/base/local_file.h"

#include "imaging/files/file_names.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <filesystem>
#include <system_error>

namespace quarlin {

using namespace Qt::StringLiterals;

namespace {

bool namesParents(const QString& path) { return path.split(u'/').contains(u".."_s); }

/// The folder `path` with its links resolved, as far as it exists. ".." after a link is the parent of the
/// folder that the link leads to, so it can't be removed from the text.
QString resolvedFolder(const QString& path) {
    std::error_code failure;
    const std::filesystem::path real =
        std::filesystem::weakly_canonical(localPath(QUrl::fromLocalFile(path)), failure);
    return failure ? QDir::cleanPath(path) : QFile::decodeName(QByteArray::fromStdString(real.string()));
}

}  // namespace

QUrl localFile(const QString& path) {
    const QString absolute = QDir::isAbsolutePath(path) ? path : QDir::currentPath() + u'/' + path;
    if (!namesParents(absolute)) {
        return QUrl::fromLocalFile(QDir::cleanPath(absolute));
    }
    // The last name stays, even if it is that of a link: it is the one that the user knows.
    const QString name = absolute.section(u'/', -1);
    if (name.isEmpty() || name == u"."_s || name == u".."_s) {
        return QUrl::fromLocalFile(QDir::cleanPath(resolvedFolder(absolute)));
    }
    return QUrl::fromLocalFile(QDir::cleanPath(resolvedFolder(absolute.chopped(name.size())) + u'/' + name));
}

}  // namespace quarlin

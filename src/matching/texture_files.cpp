#include "matching/texture_files.h"

#include "imaging/files/file_names.h"
#include "model/image_file_type.h"

#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <filesystem>
#include <system_error>

namespace quarlin {

using namespace Qt::StringLiterals;

namespace {

using Entries = std::vector<std::filesystem::directory_entry>;

[[noreturn]] void fail(const QString& what, const QString& folder, const QString& reason = {}) {
    throw TextureSearchError(what + u": "_s + lastPathComponent(QUrl::fromLocalFile(folder)) +
                             (reason.isEmpty() ? QString() : u" ("_s + reason + u')'));
}

Entries entriesOf(const QString& folder) {
    std::error_code failure;
    Entries entries;
    std::filesystem::directory_iterator entry(localPath(QUrl::fromLocalFile(folder)), failure);
    while (!failure && entry != std::filesystem::directory_iterator()) {
        entries.push_back(*entry);
        entry.increment(failure);
    }
    if (failure) {
        fail(u"Could not read folder"_s, folder, QString::fromStdString(failure.message()));
    }
    return entries;
}

QString nameOf(const std::filesystem::directory_entry& entry) {
#ifdef Q_OS_WIN
    return QString::fromStdWString(entry.path().filename().wstring());
#else
    return QFile::decodeName(QByteArray::fromStdString(entry.path().filename().string()));
#endif
}

/// Whether the entry is a folder of its own, and no link to one.
bool isFolder(const std::filesystem::directory_entry& entry) {
    std::error_code failure;
    return entry.symlink_status(failure).type() == std::filesystem::file_type::directory;
}

/// Whether the entry is a folder in any way.
bool leadsToFolder(const std::filesystem::directory_entry& entry) {
    std::error_code failure;
    return entry.is_directory(failure);
}

void collect(const QString& folder, const TextureSearch& search, std::vector<TextureFolder>& found) {
    TextureFolder own{folder, {}};
    QStringList below;
    for (const std::filesystem::directory_entry& entry : entriesOf(folder)) {
        const QString name = nameOf(entry);
        const QString path = folder + (folder.endsWith(u'/') ? QString() : u"/"_s) + name;
        if (name.startsWith(u'.')) {
            continue;
        }
        if (isFolder(entry)) {
            below += path;
        } else if (!leadsToFolder(entry) && isImageExtension(QFileInfo(name).suffix())) {
            own.files += path;
        }
    }
    std::sort(own.files.begin(), own.files.end());
    if (!own.files.isEmpty()) {
        found.push_back(own);
    }
    if (search.depth == Depth::withSubfolders) {
        std::sort(below.begin(), below.end());
        for (const QString& path : below) {
            if (path != search.output) {
                collect(path, search, found);
            }
        }
    }
}

}  // namespace

std::vector<TextureFolder> findTextures(const QString& folder, const TextureSearch& search) {
    std::vector<TextureFolder> found;
    collect(folder, search, found);
    if (found.empty()) {
        fail(u"No image files in folder"_s, folder);
    }
    return found;
}

}  // namespace quarlin

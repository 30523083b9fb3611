#include "texture_files.h"

#include "command_failure.h"
#include "file_names.h"
#include "image_file_type.h"
#include "local_file.h"

#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <filesystem>
#include <system_error>

namespace quarlin {

namespace {

using Entries = std::vector<std::filesystem::directory_entry>;

[[noreturn]] void fail(const QString& what, const QString& folder, const QString& reason = {}) {
    throw CommandFailure(QStringLiteral("Load"),
                         what + QStringLiteral(": ") + lastPathComponent(QUrl::fromLocalFile(folder)) +
                             (reason.isEmpty() ? QString() : QStringLiteral(" (") + reason + u')'));
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
        fail(QStringLiteral("Could not read folder"), folder, QString::fromStdString(failure.message()));
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
        const QString path = folder + (folder.endsWith(u'/') ? QString() : QStringLiteral("/")) + name;
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
            if (path != localFile(search.output).toLocalFile()) {
                collect(path, search, found);
            }
        }
    }
}

}  // namespace

std::vector<TextureFolder> findTextures(const QString& path, const TextureSearch& search) {
    std::vector<TextureFolder> found;
    collect(localFile(path).toLocalFile(), search, found);
    if (found.empty()) {
        fail(QStringLiteral("No image files in folder"), path);
    }
    return found;
}

}  // namespace quarlin

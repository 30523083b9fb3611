#include "imaging/files/folder_listing.h"

#include "imaging/files/file_names.h"

#include <QFile>

#include <algorithm>
#include <filesystem>
#include <system_error>

namespace quarlin {

namespace {

QString nameOf(const std::filesystem::directory_entry& entry) {
#ifdef Q_OS_WIN
    return QString::fromStdWString(entry.path().filename().wstring());
#else
    return QFile::decodeName(QByteArray::fromStdString(entry.path().filename().string()));
#endif
}

EntryKind kindOf(const std::filesystem::directory_entry& entry) {
    // An entry that can't be examined is none of the folders.
    std::error_code failure;
    if (entry.symlink_status(failure).type() == std::filesystem::file_type::directory) {
        return EntryKind::folder;
    }
    return entry.is_directory(failure) ? EntryKind::linkToFolder : EntryKind::other;
}

}  // namespace

std::vector<FolderEntry> listFolder(const QUrl& folder) {
    std::vector<FolderEntry> entries;
    for (const std::filesystem::directory_entry& entry :
         std::filesystem::directory_iterator(localPath(folder))) {
        entries.push_back({nameOf(entry), kindOf(entry)});
    }
    std::sort(entries.begin(), entries.end(),
              [](const FolderEntry& left, const FolderEntry& right) { return left.name < right.name; });
    return entries;
}

}  // namespace quarlin

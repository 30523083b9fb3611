#include "imaging/files/folder_listing.h"

#include "imaging/files/file_names.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

namespace quarlin {

namespace {

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
         std::filesystem::directory_iterator(existingPath(folder))) {
        entries.push_back({nameText(entry.path().filename()), kindOf(entry)});
    }
    std::sort(entries.begin(), entries.end(),
              [](const FolderEntry& left, const FolderEntry& right) { return left.name < right.name; });
    return entries;
}

}  // namespace quarlin

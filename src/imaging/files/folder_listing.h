#pragma once

#include <QString>
#include <QUrl>

#include <vector>

namespace quarlin {

enum class EntryKind { folder, linkToFolder, other };

struct FolderEntry {
    QString name;
    EntryKind kind = EntryKind::other;
};

/// What `folder` contains, hidden entries too, sorted by name. Throws `std::system_error` when it can't be
/// read to the end.
std::vector<FolderEntry> listFolder(const QUrl& folder);

}  // namespace quarlin

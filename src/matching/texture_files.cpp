#include "matching/texture_files.h"

#include "imaging/files/file_names.h"
#include "imaging/files/folder_listing.h"
#include "matching/exported_set.h"
#include "model/image_file_type.h"

#include <QFileInfo>

#include <algorithm>
#include <filesystem>
#include <system_error>

namespace quarlin {

using namespace Qt::StringLiterals;

namespace {

QString nameOf(const QString& folder) { return lastPathComponent(QUrl::fromLocalFile(folder)); }

std::vector<FolderEntry> entriesOf(const QString& folder) {
    try {
        return listFolder(QUrl::fromLocalFile(folder));
    } catch (const std::system_error& error) {
        throw TextureSearchError(u"Could not read folder: "_s + nameOf(folder) + u" ("_s +
                                 QString::fromStdString(error.code().message()) + u')');
    }
}

/// Searches one folder after the other.
class Search {
public:
    Search(QString root, const TextureSearch& search) : m_root(std::move(root)), m_search(search) {}

    FoundTextures run() {
        collect(m_root);
        return std::move(m_found);
    }

private:
    void collect(const QString& folder) {
        m_found.searched += folder;
        TextureFolder own{folder, {}, {}, folder.mid(m_root.size() + 1)};
        QStringList names;
        QStringList below;
        for (const auto& [name, kind] : entriesOf(folder)) {
            if (name.startsWith(u'.')) {
                continue;
            }
            const QString path = folder + (folder.endsWith(u'/') ? QString() : u"/"_s) + name;
            if (kind == EntryKind::folder) {
                below += path;
            } else if (kind == EntryKind::other) {
                names += name;
                addFile(path, own);
            }
        }
        if (folder != m_root && isExportedSet(folder, names)) {
            m_found.exportedSets += folder;
            return;
        }
        if (!own.files.isEmpty() || !own.unreadFiles.isEmpty()) {
            m_found.folders.push_back(own);
        }
        if (m_search.depth == Depth::withSubfolders) {
            for (const QString& path : below) {
                if (!isOutput(path)) {
                    collect(path);
                }
            }
        }
    }

    /// Compares the folders, not the paths: one path may lead through links.
    bool isOutput(const QString& folder) const {
        std::error_code failure;
        return !m_search.output.isEmpty() &&
               std::filesystem::equivalent(localPath(QUrl::fromLocalFile(folder)),
                                           localPath(QUrl::fromLocalFile(m_search.output)), failure);
    }

    static void addFile(const QString& path, TextureFolder& folder) {
        const QString extension = QFileInfo(path).suffix();
        if (isImageExtension(extension)) {
            folder.files += path;
        } else if (isUnreadImageExtension(extension)) {
            folder.unreadFiles += path;
        }
    }

    QString m_root;
    const TextureSearch& m_search;
    FoundTextures m_found;
};

}  // namespace

FoundTextures findTextures(const QString& folder, const TextureSearch& search) {
    FoundTextures found = Search(folder, search).run();
    const bool hasFiles = std::any_of(found.folders.begin(), found.folders.end(),
                                      [](const TextureFolder& each) { return !each.files.isEmpty(); });
    if (!hasFiles) {
        throw TextureSearchError(u"No image files in folder: "_s + nameOf(folder));
    }
    return found;
}

}  // namespace quarlin

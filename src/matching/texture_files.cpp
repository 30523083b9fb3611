#include "matching/texture_files.h"

#include "imaging/files/file_names.h"
#include "imaging/files/folder_listing.h"
#include "model/image_file_type.h"

#include <QFileInfo>

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

void collect(const QString& folder, const TextureSearch& search, std::vector<TextureFolder>& found) {
    TextureFolder own{folder, {}};
    QStringList below;
    for (const auto& [name, kind] : entriesOf(folder)) {
        const QString path = folder + (folder.endsWith(u'/') ? QString() : u"/"_s) + name;
        if (name.startsWith(u'.')) {
            continue;
        }
        if (kind == EntryKind::folder) {
            below += path;
        } else if (kind == EntryKind::other && isImageExtension(QFileInfo(name).suffix())) {
            own.files += path;
        }
    }
    if (!own.files.isEmpty()) {
        found.push_back(own);
    }
    if (search.depth == Depth::withSubfolders) {
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
        throw TextureSearchError(u"No image files in folder: "_s + nameOf(folder));
    }
    return found;
}

}  // namespace quarlin

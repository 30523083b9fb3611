#pragma once

#include <QString>
#include <QStringList>

#include <exception>
#include <utility>
#include <vector>

namespace quarlin {

/// Whether the folders inside a folder are searched too.
enum class Depth { folderAlone, withSubfolders };

/// Where to look for textures.
struct TextureSearch {
    Depth depth = Depth::folderAlone;
    /// The absolute path of the folder that receives the exported sets. That folder is skipped if it is below
    /// the searched one, also if one of the paths leads to it through links.
    QString output;
};

/// The pictures of a folder.
struct TextureFolder {
    /// Absolute.
    QString path;
    /// Absolute paths, sorted by name.
    QStringList files;
    /// Pictures of formats that can't be read; absolute paths, sorted by name.
    QStringList unreadFiles = {};
    /// The path below the searched folder; empty for that folder itself.
    QString relativePath = {};
};

/// What a search found.
struct FoundTextures {
    /// The folders with pictures, sorted by path.
    std::vector<TextureFolder> folders;
    /// The folders that were skipped because they are exported sets; absolute paths.
    QStringList exportedSets;
    /// Every folder that was looked into; absolute paths.
    QStringList searched;
};

/// A folder can't be read, or has no images.
class TextureSearchError : public std::exception {
public:
    explicit TextureSearchError(QString reason) : m_reason(std::move(reason)) {}

    /// One line for the user, with the name of the folder.
    const QString& reason() const { return m_reason; }
    const char* what() const noexcept override { return "no textures found"; }

private:
    QString m_reason;
};

/// The folders that contain pictures: `folder`, an absolute path, and with `Depth::withSubfolders` those
/// below it. A file is a picture if its extension is that of an image format. Hidden files and folders are
/// skipped, and links to folders are not followed. A folder below `folder` that is an exported set is
/// skipped, so that the sets of earlier runs do not become sources. Throws `TextureSearchError` if a folder
/// can't be read or there is no picture that can be read.
FoundTextures findTextures(const QString& folder, const TextureSearch& search);

}  // namespace quarlin

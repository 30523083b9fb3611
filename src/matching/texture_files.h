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
    /// The absolute path of the folder that receives the exported sets. It is skipped where it is below the
    /// searched folder, so that exported files do not become sources of the next run.
    QString output;
};

/// The image files of a folder.
struct TextureFolder {
    QString path;
    /// Absolute paths, sorted by name.
    QStringList files;
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

/// The folders that contain images: `folder`, an absolute path, and with `Depth::withSubfolders` those below
/// it, sorted by path. A file is an image if its extension is that of an image format. Hidden files and
/// folders are skipped, and links to folders are not followed. Throws `TextureSearchError`.
std::vector<TextureFolder> findTextures(const QString& folder, const TextureSearch& search);

}  // namespace quarlin

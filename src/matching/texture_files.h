#pragma once

#include <QString>
#include <QStringList>

#include <vector>

namespace quarlin {

/// Whether the folders inside a folder are searched too.
enum class Depth { folderAlone, withSubfolders };

/// Which files of a folder are meant.
struct TextureSearch {
    Depth depth = Depth::folderAlone;
    /// The folder that receives the sets: below the folder that is searched, it is left alone, so that what
    /// is exported today is no source tomorrow.
    QString output;
};

/// The image files of a folder.
struct TextureFolder {
    QString path;
    /// Absolute paths, sorted by name.
    QStringList files;
};

/// The folder at `path`, and with subfolders those below it that hold images, sorted by path. A file is one
/// of an image when its extension says so; hidden files and folders are left alone, and links to folders are
/// not followed. Throws `CommandFailure` when a folder can't be read, or when there is no image at all.
std::vector<TextureFolder> findTextures(const QString& path, const TextureSearch& search);

}  // namespace quarlin

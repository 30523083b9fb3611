#pragma once

#include <QString>
#include <QUrl>

#include <filesystem>

namespace quarlin {

/// The name of a file with its extension, without its folder; for a folder, the folder's name.
QString lastPathComponent(const QUrl& url);

/// `lastPathComponent` without its extension, which starts at the last dot unless the name starts there too.
QString fileStem(const QUrl& url);

/// The location of the file `name` in `folder`.
QUrl fileIn(const QUrl& folder, const QString& name);

/// The text of a name in the system's encoding; replacement characters stand for bytes that are not valid.
QString nameText(const std::filesystem::path& name);

/// The location as a path of the standard library.
std::filesystem::path localPath(const QUrl& url);

/// `localPath` of a file or folder that is to be read. Names whose bytes are not text in the system's
/// encoding (those of an old archive in Latin-1, on a UTF-8 system) have replacement characters in `url`.
/// Such a name is looked up among those of its folder, and found if it is the only one with that text.
std::filesystem::path existingPath(const QUrl& url);

}  // namespace quarlin

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

/// The location as a path of the standard library.
std::filesystem::path localPath(const QUrl& url);

}  // namespace quarlin

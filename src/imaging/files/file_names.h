#pragma once

#include <QString>
#include <QUrl>

#include <filesystem>

namespace quarlin {

/// The name at the end of a file location, with its extension; of a folder, the folder's name.
QString lastPathComponent(const QUrl& url);

/// `lastPathComponent` without its extension: what follows the last dot, unless the name begins with that
/// dot.
QString fileStem(const QUrl& url);

/// The location of the file `name` in `folder`.
QUrl fileIn(const QUrl& folder, const QString& name);

/// The location as the standard library takes it.
std::filesystem::path localPath(const QUrl& url);

}  // namespace quarlin

#pragma once

#include <QByteArray>
#include <QString>
#include <QUrl>

namespace quarlin {

/// Makes the folder `name` in `parent`, with the folders above it that are missing, and returns its location.
/// A folder that exists is used as it is, but for drafts that killed exports left long ago. Throws
/// `FileSystemError`.
QUrl createExportFolder(const QUrl& parent, const QString& name);

/// Writes a text file, whole or not at all. Throws `cannotWriteText`.
void writeTextFile(const QByteArray& text, const QUrl& url);

}  // namespace quarlin

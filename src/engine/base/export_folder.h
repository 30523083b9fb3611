#pragma once

#include "model/export_result.h"

#include <QByteArray>
#include <QString>
#include <QUrl>

namespace quarlin {

/// Makes the folder `name` in `parent`, with the folders above it that are missing, and returns its location.
/// A folder that exists is used as it is, but for drafts that killed exports left long ago. Throws
/// `FileSystemError`.
QUrl createExportFolder(const QUrl& parent, const QString& name);

/// Writes a text file into the folder of `result`, whole or not at all, and adds its name there. Throws
/// `cannotWriteText`.
void writeText(const QByteArray& text, const QString& name, ExportResult& result);

}  // namespace quarlin

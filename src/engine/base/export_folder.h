#pragma once

#include "model/export_result.h"

#include <QByteArray>
#include <QString>
#include <QUrl>

namespace quarlin {

/// Creates the folder `name` in `parent`, with any missing folders above it, and returns its location. In a
/// folder that exists, only abandoned drafts of killed exports are removed. Throws `FileSystemError`.
QUrl createExportFolder(const QUrl& parent, const QString& name);

/// Writes a text file into the folder of `result`, whole or not at all, and adds its name there. Throws
/// `cannotWriteText`.
void writeText(const QByteArray& text, const QString& name, ExportResult& result);

}  // namespace quarlin

#pragma once

#include "model/export_result.h"

#include <QByteArray>
#include <QString>
#include <QUrl>

#include <filesystem>
#include <vector>

namespace quarlin {

/// The folder that a set is exported to.
class ExportFolder {
public:
    /// Creates the folder `name` in `parent`, with any missing folders above it. In a folder that exists,
    /// only abandoned drafts of killed exports are removed. Throws `FileSystemError`.
    ExportFolder(const QUrl& parent, const QString& name);

    const QUrl& url() const { return m_url; }

    /// Removes the folders that were created, as far as they are empty.
    void removeIfNew();

private:
    QUrl m_url;
    /// Those that were created, the innermost first.
    std::vector<std::filesystem::path> m_created;
};

/// Writes a text file into the folder of `result`, whole or not at all, and adds its name there. Throws
/// `cannotWriteText`.
void writeText(const QByteArray& text, const QString& name, ExportResult& result);

}  // namespace quarlin

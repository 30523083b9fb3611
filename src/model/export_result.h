#pragma once

#include <QStringList>
#include <QUrl>

namespace quarlin {

/// What an export wrote.
struct ExportResult {
    /// The folder that received the files.
    QUrl folderURL;
    /// The names of the written files, without folder, in writing order.
    QStringList files;

    bool operator==(const ExportResult&) const = default;
};

}  // namespace quarlin

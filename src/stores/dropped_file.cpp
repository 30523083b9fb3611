#include "stores/dropped_file.h"

#include <QMimeData>

namespace quarlin {

QList<QUrl> droppedFiles(const QMimeData& data) {
    QList<QUrl> files = data.urls();
    files.removeIf([](const QUrl& url) { return !url.isLocalFile(); });
    return files;
}

std::optional<QUrl> droppedFile(const QMimeData& data) {
    const QList<QUrl> files = droppedFiles(data);
    return files.isEmpty() ? std::nullopt : std::optional(files.front());
}

}  // namespace quarlin

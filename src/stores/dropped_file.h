#pragma once

#include <QList>
#include <QUrl>

#include <optional>

class QMimeData;

namespace quarlin {

/// The local files and folders in dragged data.
QList<QUrl> droppedFiles(const QMimeData& data);

/// The first local file in dragged data, or nothing when there is none.
std::optional<QUrl> droppedFile(const QMimeData& data);

}  // namespace quarlin

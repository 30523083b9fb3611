#pragma once

#include <QUrl>

#include <optional>

class QMimeData;

namespace quarlin {

/// The first local file in dragged data, or nothing when there is none.
std::optional<QUrl> droppedFile(const QMimeData& data);

}  // namespace quarlin

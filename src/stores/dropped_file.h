#pragma once

#include <QUrl>

#include <optional>

class QMimeData;

namespace quarlin {

/// The first file in dragged data, or nothing when the data names none on this machine.
std::optional<QUrl> droppedFile(const QMimeData& data);

}  // namespace quarlin

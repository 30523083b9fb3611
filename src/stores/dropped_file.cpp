#include "stores/dropped_file.h"

#include <QList>
#include <QMimeData>

#include <algorithm>

namespace quarlin {

std::optional<QUrl> droppedFile(const QMimeData& data) {
    const QList<QUrl> urls = data.urls();
    const auto file =
        std::find_if(urls.begin(), urls.end(), [](const QUrl& url) { return url.isLocalFile(); });
    return file == urls.end() ? std::nullopt : std::optional(*file);
}

}  // namespace quarlin

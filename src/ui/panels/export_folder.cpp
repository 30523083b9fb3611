#include "ui/panels/export_folder.h"

#include "stores/tool_store.h"

#include <QDesktopServices>
#include <QDir>

namespace quarlin {

using namespace Qt::StringLiterals;

void openExportFolder(ToolStore& store) {
    const std::optional<QUrl> folder = store.lastExportURL();
    if (!folder) {
        return;
    }
    const QString path = QDir::toNativeSeparators(folder->toLocalFile());
    if (!QDir(folder->toLocalFile()).exists()) {
        store.reportFailure(u"Open failed: The folder is not there any more: "_s + path);
    } else if (!QDesktopServices::openUrl(*folder)) {
        store.reportFailure(u"Open failed: No program opens folders here: "_s + path);
    }
}

}  // namespace quarlin

#pragma once

#include "stores/chooser.h"

#include <QStringList>

namespace quarlin {

/// Asks with the desktop's own file dialogs, in front of the active window.
class DesktopChooser : public Chooser {
public:
    std::optional<QUrl> chooseFile(const FileQuestion& question) override;
    std::optional<QUrl> chooseFolder(const FolderQuestion& question) override;

    /// The type filters of a file dialog: all of `types` together, then each by itself.
    static QStringList nameFilters(const std::vector<ImageFileType>& types);
};

}  // namespace quarlin

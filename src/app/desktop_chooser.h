#pragma once

#include "stores/chooser.h"

#include <QStringList>

namespace quarlin {

/// Asks with the desktop's own file dialogs, in front of the active window. Each kind of question opens where
/// the last one of its kind was answered. Nothing is kept on disk.
class DesktopChooser : public Chooser {
public:
    DesktopChooser();

    std::optional<QUrl> chooseFile(const FileQuestion& question) override;
    std::optional<QUrl> chooseFolder(const FolderQuestion& question) override;

    /// The type filters of a file dialog: all of `types` together, then each by itself.
    static QStringList nameFilters(const std::vector<ImageFileType>& types);

private:
    /// Folders; invalid before the first answer.
    QUrl m_texturePlace;
    QUrl m_exportPlace;
};

}  // namespace quarlin

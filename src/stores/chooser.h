#pragma once

#include "model/image_file_type.h"

#include <QString>
#include <QUrl>

#include <optional>
#include <vector>

namespace quarlin {

/// A question for one existing file.
struct FileQuestion {
    /// Title of the dialog.
    QString title;
    /// Label of the button that confirms.
    QString confirmLabel;
    /// The types that may be chosen, in the order in which they are offered.
    std::vector<ImageFileType> types;

    bool operator==(const FileQuestion&) const = default;
};

/// A question for one folder; the user may create it in the dialog.
struct FolderQuestion {
    /// Title of the dialog.
    QString title;
    /// Label of the button that confirms.
    QString confirmLabel;

    bool operator==(const FolderQuestion&) const = default;
};

/// Asks the user for files and folders. A call returns once the user has answered; nothing means
/// canceled.
class Chooser {
public:
    virtual ~Chooser() = default;

    virtual std::optional<QUrl> chooseFile(const FileQuestion& question) = 0;
    virtual std::optional<QUrl> chooseFolder(const FolderQuestion& question) = 0;
};

}  // namespace quarlin

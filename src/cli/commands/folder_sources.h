#pragma once

#include "cli/batch/set_job.h"
#include "cli/options/command_option.h"
#include "matching/texture_files.h"
#include "matching/texture_rules.h"

#include <QUrl>

namespace quarlin {

/// How an export command treats folders of textures: which folders it searches, how it matches names, and
/// where the sets go.
class FolderSources {
public:
    /// Adds the options for folders, bound to this object.
    void addOptions(CommandOptions& options);
    /// What the help says about them, a paragraph each.
    static QStringList remarks();

    /// The folders with pictures at `path`, which may be relative. Folders that are skipped are added to
    /// `plan`, and so is a refused set if `path` can't be searched.
    std::vector<TextureFolder> search(const QString& path, const QUrl& output, BatchPlan& plan) const;

    /// The folder in which the set of a file in `folder` gets its own.
    QUrl parentDirectory(const QUrl& output, const TextureFolder& folder) const;

    const TextureRules& rules() const { return m_rules; }
    /// Whether a picture that is left out makes the whole run fail.
    bool isStrict() const { return m_isStrict; }

private:
    bool m_isRecursive = false;
    bool m_keepsTree = false;
    bool m_isStrict = false;
    TextureRules m_rules;
};

}  // namespace quarlin

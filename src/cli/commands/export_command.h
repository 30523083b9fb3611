#pragma once

#include "cli/batch/batch.h"
#include "cli/batch/set_job.h"
#include "cli/commands/command.h"
#include "cli/commands/folder_sources.h"

#include <QUrl>

#include <optional>
#include <vector>

namespace quarlin {

/// A command that exports sets: a single one from given files, or as many as its sources contain.
class ExportCommand : public Command {
public:
    QStringList remarks() const override;
    CommandOptions options() override;
    std::vector<ExitMeaning> exitMeanings() const override;
    ExitStatus run() const override;

protected:
    /// The options of this command alone.
    virtual CommandOptions ownOptions() = 0;
    /// The remarks on this command alone.
    virtual QStringList ownRemarks() const = 0;
    /// The set if the arguments name the files of a single one, and nothing if they name folders or several
    /// files. Throws `UsageError` for arguments that can't be combined.
    virtual std::optional<SetJob> singleSet() const = 0;
    /// The sets that the sources contain.
    virtual BatchPlan severalSets() const = 0;

    /// The option for the material's name.
    CommandOption ownNameOption() { return nameOption(m_name); }
    /// The given name of the material, or else `fallback`.
    QString materialName(const QString& fallback) const { return m_name.value_or(fallback); }
    /// The absolute location of the folder in which the sets' folders are made.
    QUrl parentDirectory() const;
    /// The folders with pictures at `path`, which may be relative: see `FolderSources::search`.
    std::vector<TextureFolder> textureFolders(const QString& path, BatchPlan& plan) const {
        return m_folders.search(path, parentDirectory(), plan);
    }
    /// The folder in which the set of a file in `folder` gets its own.
    QUrl parentDirectory(const TextureFolder& folder) const {
        return m_folders.parentDirectory(parentDirectory(), folder);
    }
    const TextureRules& rules() const { return m_folders.rules(); }

private:
    /// Every set of the run, with those that can't be exported refused. Throws `UsageError` for a name that
    /// several sets would get.
    BatchPlan plan() const;
    ExitStatus exportPlan(const BatchPlan& plan) const;

    std::optional<QString> m_name;
    QString m_output;
    FolderSources m_folders;
    bool m_isUpdate = false;
    bool m_isDryRun = false;
    bool m_isWatching = false;
    bool m_reportsAsJSON = false;
    int m_setsAtOnce = defaultSetsAtOnce;
};

}  // namespace quarlin

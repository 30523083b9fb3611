#pragma once

#include "cli/batch/batch.h"
#include "cli/batch/set_job.h"
#include "cli/commands/command.h"
#include "matching/texture_files.h"

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
    /// The folders with images at `path`, which may be relative. If it can't be searched, adds a refused set
    /// to `plan`.
    std::vector<TextureFolder> textureFolders(const QString& path, BatchPlan& plan) const;

private:
    std::optional<QString> m_name;
    QString m_output;
    bool m_isRecursive = false;
    bool m_isDryRun = false;
    bool m_reportsAsJSON = false;
    int m_setsAtOnce = defaultSetsAtOnce;
};

}  // namespace quarlin

#pragma once

#include "cli/batch/batch.h"
#include "cli/batch/set_job.h"
#include "cli/commands/command.h"
#include "matching/texture_files.h"

#include <QUrl>

#include <optional>
#include <vector>

namespace quarlin {

/// A command that exports sets: one, named by its files, or as many as its sources hold.
class ExportCommand : public Command {
public:
    QStringList remarks() const override;
    CommandOptions options() override;
    std::vector<ExitMeaning> exitMeanings() const override;
    ExitStatus run() const override;

protected:
    /// The options of this command alone.
    virtual CommandOptions ownOptions() = 0;
    /// What there is to know of this command alone.
    virtual QStringList ownRemarks() const = 0;
    /// The one set that the words name by its files; nothing where they name folders or several files. Throws
    /// `UsageError` for words that don't go together.
    virtual std::optional<SetJob> singleSet() const = 0;
    /// The sets that the sources hold.
    virtual BatchPlan severalSets() const = 0;

    /// The option for the material's name as typed.
    CommandOption ownNameOption() { return nameOption(m_name); }
    /// The material's name: as typed, or else `fallback`.
    QString materialName(const QString& fallback) const { return m_name.value_or(fallback); }
    /// The folder that is to receive the sets' folders, as an absolute location.
    QUrl parentDirectory() const;
    /// The folders with images at `path`, as typed. If it can't be searched, `plan` gets a refused set
    /// instead.
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

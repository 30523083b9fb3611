#pragma once

#include "cli/commands/export_command.h"
#include "matching/material_input.h"
#include "matching/texture_set.h"
#include "model/conversion_settings.h"

namespace quarlin {

using namespace Qt::StringLiterals;

/// Packs texture files into material sets, as the PBR Material tool does.
class MaterialCommand : public ExportCommand {
public:
    QString name() const override { return u"material"_s; }
    QString summary() const override;

protected:
    CommandOptions ownOptions() override;
    QStringList ownRemarks() const override;
    std::optional<SetJob> singleSet() const override;
    BatchPlan severalSets() const override;

private:
    SetJob jobFor(const TextureSet& set, const QUrl& parent) const;

    /// The files of a single set; paths may be relative. A slot without a file is missing or empty.
    MaterialInputPaths m_inputs;
    /// Folders whose files are matched to slots; paths may be relative.
    QStringList m_folders;
    bool m_keepsData = false;
    /// All settings but the material's name.
    ConversionSettings m_settings;
};

}  // namespace quarlin

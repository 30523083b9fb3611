#pragma once

#include "cli/commands/export_command.h"
#include "model/normal_generator_settings.h"

namespace quarlin {

using namespace Qt::StringLiterals;

/// Generates a map set from each texture, as the Map Generator tool does.
class MapsCommand : public ExportCommand {
public:
    QString name() const override { return u"maps"_s; }
    QString summary() const override;

protected:
    CommandOptions ownOptions() override;
    QStringList ownRemarks() const override;
    std::optional<SetJob> singleSet() const override;
    BatchPlan severalSets() const override;

private:
    SetJob jobFor(const QString& path, const QUrl& parent) const;

    /// Files and folders; paths may be relative.
    QStringList m_sources;
    bool m_takesAll = false;
    /// All settings but the material's name.
    NormalGeneratorSettings m_settings;
};

}  // namespace quarlin

#pragma once

#include "command.h"
#include "conversion_settings.h"
#include "texture_slot_kind.h"

#include <map>
#include <optional>

namespace quarlin {

/// Packs texture files into a material set, as the PBR Material tool does.
class MaterialCommand : public Command {
public:
    QString name() const override { return QStringLiteral("material"); }
    QString summary() const override;
    ExportResult run() const override;

protected:
    CommandOptions ownOptions() override;

private:
    std::map<TextureSlotKind, QString> m_paths;
    /// The material's name as typed; nothing to take it from the base colour file.
    std::optional<QString> m_name;
    ConversionSettings m_settings;
};

}  // namespace quarlin

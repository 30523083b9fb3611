#pragma once

#include "command.h"
#include "normal_generator_settings.h"

#include <optional>

namespace quarlin {

/// Generates a map set from one texture, as the Map Generator tool does.
class MapsCommand : public Command {
public:
    QString name() const override { return QStringLiteral("maps"); }
    QString summary() const override;
    ExportResult run() const override;

protected:
    CommandOptions ownOptions() override;

private:
    QString m_source;
    /// The material's name as typed; nothing to take it from the source file.
    std::optional<QString> m_name;
    NormalGeneratorSettings m_settings;
};

}  // namespace quarlin

#pragma once

#include "model/normal_generator_settings.h"
#include "stores/normal_generator_store.h"
#include "ui/panels/settings_panel.h"

namespace quarlin {

/// The settings and the actions of the Map Generator tool.
class GeneratorSettingsPanel : public BoundSettingsPanel<NormalGeneratorStore, NormalGeneratorSettings> {
    Q_OBJECT

public:
    /// `store` must outlive the panel.
    explicit GeneratorSettingsPanel(NormalGeneratorStore& store);
};

}  // namespace quarlin

#pragma once

#include "normal_generator_store.h"
#include "settings_panel.h"

namespace quarlin {

/// The settings and the actions of the Map Generator tool.
class GeneratorSettingsPanel : public BoundSettingsPanel<NormalGeneratorStore, NormalGeneratorSettings> {
    Q_OBJECT

public:
    /// `store` must outlive the panel.
    explicit GeneratorSettingsPanel(NormalGeneratorStore& store);
};

}  // namespace quarlin

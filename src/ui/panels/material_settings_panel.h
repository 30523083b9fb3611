#pragma once

#include "model/conversion_settings.h"
#include "stores/material_store.h"
#include "ui/panels/settings_panel.h"

namespace quarlin {

/// The settings and the actions of the PBR Material tool.
class MaterialSettingsPanel : public BoundSettingsPanel<MaterialStore, ConversionSettings> {
    Q_OBJECT

public:
    /// `store` must outlive the panel.
    explicit MaterialSettingsPanel(MaterialStore& store);
};

}  // namespace quarlin

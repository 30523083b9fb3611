#include "ui/panels/material_settings_panel.h"

#include "model/material_set.h"
#include "ui/controls/button.h"

namespace quarlin {

using namespace Qt::StringLiterals;

MaterialSettingsPanel::MaterialSettingsPanel(MaterialStore& store)
    : BoundSettingsPanel(store, u"Material"_s) {
    GroupBox* output = addGroup({}, 12);
    addNameField(*output, &ConversionSettings::materialName);
    addSizePicker(*output, &ConversionSettings::outputResolution);

    GroupBox* conversion = addGroup(u"Map Conversion"_s, 12);
    addToggle(*conversion, u"Roughness input is gloss/smoothness"_s,
              &ConversionSettings::roughnessInputIsGloss);
    addToggle(*conversion, u"Flip normal green channel"_s, &ConversionSettings::flipNormalGreen);

    GroupBox* defaults = addGroup(u"Missing Map Defaults"_s, 14);
    addPercentage(*defaults, u"AO"_s, &ConversionSettings::defaultOcclusion);
    addPercentage(*defaults, u"Roughness"_s, &ConversionSettings::defaultRoughness);
    addPercentage(*defaults, u"Metallic"_s, &ConversionSettings::defaultMetallic);

    GroupBox* exported = addGroup(u"Export"_s, 12);
    addFileToggles<MaterialFile>(*exported);
    addActions(*exported);
    closeColumn();

    connect(previewButton(), &Button::clicked, &store, &MaterialStore::buildPreview);
    connect(exportButton(), &Button::clicked, &store, &MaterialStore::exportMaterialSet);
    observe([this, &store] {
        previewButton()->setEnabled(store.hasAnyTexture());
        exportButton()->setEnabled(store.canExport());
    });
}

}  // namespace quarlin

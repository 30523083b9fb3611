#include "material_settings_panel.h"

#include "button.h"

namespace quarlin {

MaterialSettingsPanel::MaterialSettingsPanel(MaterialStore& store)
    : BoundSettingsPanel(store, QStringLiteral("Material")) {
    GroupBox* output = addGroup({}, 12);
    addNameField(*output, &ConversionSettings::materialName);
    addSizePicker(*output, &ConversionSettings::outputResolution);

    GroupBox* conversion = addGroup(QStringLiteral("Map Conversion"), 12);
    addToggle(*conversion, QStringLiteral("Roughness input is gloss/smoothness"),
              &ConversionSettings::roughnessInputIsGloss);
    addToggle(*conversion, QStringLiteral("Flip normal green channel"), &ConversionSettings::flipNormalGreen);

    GroupBox* defaults = addGroup(QStringLiteral("Missing Map Defaults"), 14);
    addPercentage(*defaults, QStringLiteral("AO"), &ConversionSettings::defaultOcclusion);
    addPercentage(*defaults, QStringLiteral("Roughness"), &ConversionSettings::defaultRoughness);
    addPercentage(*defaults, QStringLiteral("Metallic"), &ConversionSettings::defaultMetallic);

    GroupBox* exported = addGroup(QStringLiteral("Export"), 12);
    addToggle(*exported, QStringLiteral("Write .gltf material"), &ConversionSettings::exportGLTF);
    addToggle(*exported, QStringLiteral("Write notes"), &ConversionSettings::exportNotes);
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

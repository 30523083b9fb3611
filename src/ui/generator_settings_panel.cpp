#include "generator_settings_panel.h"

#include "button.h"
#include "formatters.h"
#include "setting_range.h"

namespace quarlin {

namespace {

constexpr ValueRange strengths{strengthRange.lowest, strengthRange.highest, 0.1, 1};

QString strengthLabel(double value) { return Formatters::decimalLabel(value, 1); }

}  // namespace

GeneratorSettingsPanel::GeneratorSettingsPanel(NormalGeneratorStore& store)
    : BoundSettingsPanel(store, QStringLiteral("Generated Maps")) {
    using Settings = NormalGeneratorSettings;
    GroupBox* output = addGroup({}, 12);
    addNameField(*output, &Settings::materialName);
    addSizePicker(*output, &Settings::outputResolution);

    GroupBox* relief = addGroup(QStringLiteral("Normal / Height"), 14);
    addSlider(*relief, new SliderRow(QStringLiteral("Strength"), strengths, &strengthLabel),
              &Settings::strength);
    addStepper(*relief,
               new StepperRow(QStringLiteral("Smoothing"), smoothingRange.lowest, smoothingRange.highest),
               &Settings::smoothing);
    addToggle(*relief, QStringLiteral("Invert height"), &Settings::invertHeight);
    addToggle(*relief, QStringLiteral("Flip green channel"), &Settings::flipGreen);

    GroupBox* roughness = addGroup(QStringLiteral("Roughness / Gloss"), 14);
    addPercentage(*roughness, QStringLiteral("Rough Min"), &Settings::roughnessMin);
    addPercentage(*roughness, QStringLiteral("Rough Max"), &Settings::roughnessMax);

    GroupBox* metal = addGroup(QStringLiteral("Metal / AO"), 14);
    addPercentage(*metal, QStringLiteral("Metal"), &Settings::metallicStrength);
    addPercentage(*metal, QStringLiteral("AO"), &Settings::aoStrength);

    GroupBox* files = addGroup(QStringLiteral("Files"), 12);
    addToggle(*files, QStringLiteral("Write height helper"), &Settings::exportHeight);
    addToggle(*files, QStringLiteral("Write roughness"), &Settings::exportRoughness);
    addToggle(*files, QStringLiteral("Write gloss"), &Settings::exportGloss);
    addToggle(*files, QStringLiteral("Write metallic"), &Settings::exportMetallic);
    addToggle(*files, QStringLiteral("Write AO"), &Settings::exportAO);
    addToggle(*files, QStringLiteral("Write ORM"), &Settings::exportORM);
    addToggle(*files, QStringLiteral("Write .gltf material"), &Settings::exportGLTF);
    addToggle(*files, QStringLiteral("Write notes"), &Settings::exportNotes);
    addActions(*files);
    closeColumn();

    connect(previewButton(), &Button::clicked, &store, &NormalGeneratorStore::buildPreview);
    connect(exportButton(), &Button::clicked, &store, &NormalGeneratorStore::exportSet);
    observe([this, &store] {
        // Here, unlike in the other tool, both hang on the source alone.
        previewButton()->setEnabled(store.canExport());
        exportButton()->setEnabled(store.canExport());
    });
}

}  // namespace quarlin

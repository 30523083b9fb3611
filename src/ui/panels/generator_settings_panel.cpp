#include "ui/panels/generator_settings_panel.h"

#include "model/formatters.h"
#include "model/generated_set.h"
#include "model/setting_range.h"
#include "ui/controls/button.h"

namespace quarlin {

using namespace Qt::StringLiterals;

namespace {

constexpr ValueRange strengths{strengthRange.lowest, strengthRange.highest, 0.1, 1};

QString strengthLabel(double value) { return Formatters::decimalLabel(value, 1); }

}  // namespace

GeneratorSettingsPanel::GeneratorSettingsPanel(NormalGeneratorStore& store)
    : BoundSettingsPanel(store, u"Generated Maps"_s) {
    using Settings = NormalGeneratorSettings;
    GroupBox* output = addGroup({}, 12);
    addNameField(*output, &Settings::materialName);
    addSizePicker(*output, &Settings::outputResolution);

    GroupBox* relief = addGroup(u"Normal / Height"_s, 14);
    addSlider(*relief, new SliderRow(u"Strength"_s, strengths, &strengthLabel), &Settings::strength);
    addStepper(*relief, new StepperRow(u"Smoothing"_s, smoothingRange.lowest, smoothingRange.highest),
               &Settings::smoothing);
    addToggle(*relief, u"Invert height"_s, &Settings::invertHeight);
    addToggle(*relief, u"Flip green channel"_s, &Settings::flipGreen);

    GroupBox* roughness = addGroup(u"Roughness / Gloss"_s, 14);
    addPercentage(*roughness, u"Rough Min"_s, &Settings::roughnessMin);
    addPercentage(*roughness, u"Rough Max"_s, &Settings::roughnessMax);

    GroupBox* metal = addGroup(u"Metal / AO"_s, 14);
    addPercentage(*metal, u"Metal"_s, &Settings::metallicStrength);
    addPercentage(*metal, u"AO"_s, &Settings::aoStrength);

    GroupBox* files = addGroup(u"Files"_s, 12);
    addFileToggles<GeneratedFile>(*files);
    addActions(*files);
    closeColumn();

    connect(previewButton(), &Button::clicked, &store, &NormalGeneratorStore::buildPreview);
    connect(exportButton(), &Button::clicked, &store, &NormalGeneratorStore::exportSet);
    observe([this, &store] {
        // Unlike in the other tool, both need only a source.
        previewButton()->setEnabled(store.canExport());
        exportButton()->setEnabled(store.canExport());
    });
}

}  // namespace quarlin

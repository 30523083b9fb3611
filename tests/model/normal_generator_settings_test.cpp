#include "model/normal_generator_settings.h"

#include "model/output_resolution.h"
#include "qstring_printing.h"
#include "set_files.h"

#include <gtest/gtest.h>

#include <functional>
#include <vector>

using namespace Qt::StringLiterals;

using namespace quarlin;
using namespace quarlin::fixtures;

namespace {

TEST(NormalGeneratorSettings, FreshValuesCarryTheDefaults) {
    const NormalGeneratorSettings settings;
    EXPECT_EQ(settings.materialName, u"VOREK_Normal"_s);
    EXPECT_EQ(settings.outputResolution, OutputResolution::px2048);
    EXPECT_EQ(settings.strength, 3.0);
    EXPECT_EQ(settings.smoothing, 1);
    EXPECT_FALSE(settings.invertHeight);
    EXPECT_FALSE(settings.flipGreen);
    EXPECT_EQ(settings.roughnessMin, 0.18);
    EXPECT_EQ(settings.roughnessMax, 0.82);
    EXPECT_EQ(settings.metallicStrength, 0.45);
    EXPECT_EQ(settings.aoStrength, 0.55);
    for (const auto& file : withSwitch(generatedFiles())) {
        EXPECT_TRUE(settings.*file.isExported) << file.suffix;
    }
}

TEST(NormalGeneratorSettings, TwoDefaultsAreEqual) {
    EXPECT_EQ(NormalGeneratorSettings(), NormalGeneratorSettings());
}

TEST(NormalGeneratorSettings, AChangeOfAnyOneFieldMakesThemUnequal) {
    std::vector<std::function<void(NormalGeneratorSettings&)>> changes{
        [](auto& settings) { settings.materialName = u"Other"_s; },
        [](auto& settings) { settings.outputResolution = OutputResolution::matchBase; },
        [](auto& settings) { settings.strength = 3.01; },
        [](auto& settings) { settings.smoothing = 2; },
        [](auto& settings) { settings.invertHeight = true; },
        [](auto& settings) { settings.flipGreen = true; },
        [](auto& settings) { settings.roughnessMin = 0.19; },
        [](auto& settings) { settings.roughnessMax = 0.81; },
        [](auto& settings) { settings.metallicStrength = 0.46; },
        [](auto& settings) { settings.aoStrength = 0.56; },
    };
    for (const auto& file : withSwitch(generatedFiles())) {
        changes.emplace_back([=](auto& settings) { settings.*file.isExported = false; });
    }
    for (std::size_t index = 0; index < changes.size(); ++index) {
        NormalGeneratorSettings changed;
        changes[index](changed);
        EXPECT_NE(changed, NormalGeneratorSettings()) << "field " << index;
    }
}

TEST(NormalGeneratorSettings, KeepSwappedRoughnessBounds) {
    NormalGeneratorSettings settings;
    settings.roughnessMin = 0.9;
    settings.roughnessMax = 0.1;
    EXPECT_EQ(settings.roughnessMin, 0.9);
    EXPECT_EQ(settings.roughnessMax, 0.1);
}

TEST(NormalGeneratorSettings, CleanTheirMaterialName) {
    NormalGeneratorSettings settings;
    settings.materialName = u"My Brick  #1"_s;
    EXPECT_EQ(settings.safeMaterialName(), u"My_Brick___1"_s);
}

TEST(NormalGeneratorSettings, AnEmptyNameBecomesTheDefault) {
    NormalGeneratorSettings settings;
    settings.materialName = QString();
    EXPECT_EQ(settings.safeMaterialName(), u"VOREK_Normal"_s);
    settings.materialName = u"   "_s;
    EXPECT_EQ(settings.safeMaterialName(), u"VOREK_Normal"_s);
}

}  // namespace

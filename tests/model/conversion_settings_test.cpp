#include "model/conversion_settings.h"

#include "model/output_resolution.h"
#include "qstring_printing.h"

#include <gtest/gtest.h>

#include <functional>
#include <vector>

using namespace Qt::StringLiterals;

using namespace quarlin;

namespace {

TEST(ConversionSettings, FreshValuesCarryTheDefaults) {
    const ConversionSettings settings;
    EXPECT_EQ(settings.materialName, u"VOREK_PBR_Material"_s);
    EXPECT_EQ(settings.outputResolution, OutputResolution::px2048);
    EXPECT_FALSE(settings.flipNormalGreen);
    EXPECT_FALSE(settings.roughnessInputIsGloss);
    EXPECT_EQ(settings.defaultOcclusion, 1.0);
    EXPECT_EQ(settings.defaultRoughness, 0.65);
    EXPECT_EQ(settings.defaultMetallic, 0.0);
    EXPECT_TRUE(settings.exportGLTF);
    EXPECT_TRUE(settings.exportNotes);
}

TEST(ConversionSettings, AreBuiltFromNineFieldsInOrder) {
    const ConversionSettings settings{u"Brick"_s, OutputResolution::px512, true, true, 0.1, 0.2, 0.3, false,
                                      false};
    EXPECT_EQ(settings.materialName, u"Brick"_s);
    EXPECT_EQ(settings.outputResolution, OutputResolution::px512);
    EXPECT_TRUE(settings.flipNormalGreen);
    EXPECT_TRUE(settings.roughnessInputIsGloss);
    EXPECT_EQ(settings.defaultOcclusion, 0.1);
    EXPECT_EQ(settings.defaultRoughness, 0.2);
    EXPECT_EQ(settings.defaultMetallic, 0.3);
    EXPECT_FALSE(settings.exportGLTF);
    EXPECT_FALSE(settings.exportNotes);
}

TEST(ConversionSettings, TwoDefaultsAreEqual) { EXPECT_EQ(ConversionSettings(), ConversionSettings()); }

TEST(ConversionSettings, AChangeOfAnyOneFieldMakesThemUnequal) {
    const std::vector<std::function<void(ConversionSettings&)>> changes{
        [](auto& settings) { settings.materialName = u"Other"_s; },
        [](auto& settings) { settings.outputResolution = OutputResolution::px512; },
        [](auto& settings) { settings.flipNormalGreen = true; },
        [](auto& settings) { settings.roughnessInputIsGloss = true; },
        [](auto& settings) { settings.defaultOcclusion = 0.99; },
        [](auto& settings) { settings.defaultRoughness = 0.66; },
        [](auto& settings) { settings.defaultMetallic = 0.01; },
        [](auto& settings) { settings.exportGLTF = false; },
        [](auto& settings) { settings.exportNotes = false; },
    };
    for (std::size_t index = 0; index < changes.size(); ++index) {
        ConversionSettings changed;
        changes[index](changed);
        EXPECT_NE(changed, ConversionSettings()) << "field " << index;
    }
}

TEST(ConversionSettings, ClampNothing) {
    ConversionSettings settings;
    settings.defaultRoughness = -3.5;
    settings.defaultOcclusion = 42;
    EXPECT_EQ(settings.defaultRoughness, -3.5);
    EXPECT_EQ(settings.defaultOcclusion, 42);
}

TEST(ConversionSettings, CleanTheirMaterialName) {
    ConversionSettings settings;
    settings.materialName = u"  My Brick.Wall  "_s;
    EXPECT_EQ(settings.safeMaterialName(), u"My_Brick_Wall"_s);
    EXPECT_EQ(settings.materialName, u"  My Brick.Wall  "_s);
}

TEST(ConversionSettings, AnEmptyNameBecomesTheDefault) {
    ConversionSettings settings;
    settings.materialName = QString();
    EXPECT_EQ(settings.safeMaterialName(), u"VOREK_PBR_Material"_s);
    settings.materialName = u"   "_s;
    EXPECT_EQ(settings.safeMaterialName(), u"VOREK_PBR_Material"_s);
}

}  // namespace

#include "view3d/maps/material_maps.h"

#include "painted_textures.h"
#include "stores/material_store.h"
#include "stores/normal_generator_store.h"
#include "view_fixture.h"

using namespace quarlin;
using namespace quarlin::fixtures;

namespace {

class MaterialMaps : public testing::Test {
protected:
    TextureFolder folder;
    ScriptedChooser chooser;
    MaterialStore materials{chooser};
    NormalGeneratorStore generator{chooser};
};

TEST_F(MaterialMaps, AreNoneBeforeTheFirstPreview) {
    EXPECT_TRUE(toolMaterial(materials).previews().isEmpty());
    EXPECT_TRUE(toolMaterial(generator).previews().isEmpty());
}

TEST_F(MaterialMaps, OfAMaterialAreItsPreviews) {
    materials.importTexture(folder.save(u"Wall.png"_s, paintedTiles(600, 600)), TextureSlotKind::baseColor);
    const SceneMaps maps = toolMaterial(materials).previews();
    EXPECT_EQ(maps.baseColor, materials.previews().at(MaterialImage::baseColor));
    EXPECT_EQ(maps.orm, materials.previews().at(MaterialImage::orm));
    EXPECT_TRUE(maps.normal.isNull());
    EXPECT_EQ(toolMaterial(materials).name(), u"Wall"_s);
}

TEST_F(MaterialMaps, OfTheGeneratorAreSourceOrmAndNormal) {
    generator.importSourceTexture(folder.save(u"Wall.png"_s, paintedTiles(64, 64)));
    const SceneMaps maps = toolMaterial(generator).previews();
    EXPECT_EQ(maps.baseColor, generator.previews().at(GeneratedMap::source));
    EXPECT_EQ(maps.orm, generator.previews().at(GeneratedMap::orm));
    EXPECT_EQ(maps.normal, generator.previews().at(GeneratedMap::normal));
}

TEST_F(MaterialMaps, InDetailAreTheExportsUpToTheirLimit) {
    materials.importTexture(folder.save(u"Wall.png"_s, paintedTiles(600, 300)), TextureSlotKind::baseColor);
    ConversionSettings settings = materials.settings();
    for (const auto& [resolution, size] : {std::pair(OutputResolution::matchBase, QSize(600, 300)),
                                           std::pair(OutputResolution::px1024, QSize(1024, 1024)),
                                           std::pair(OutputResolution::px4096, QSize(2048, 2048))}) {
        settings.outputResolution = resolution;
        materials.setSettings(settings);
        const SceneMaps maps = toolMaterial(materials).details()();
        EXPECT_EQ(maps.baseColor.size(), size);
        EXPECT_EQ(maps.orm.size(), size);
    }
}

TEST_F(MaterialMaps, InDetailKeepTheTexturesAndSettingsOfTheirTime) {
    materials.importTexture(folder.save(u"Wall.png"_s, paintedTiles(32, 32)), TextureSlotKind::baseColor);
    const SceneMapWork work = toolMaterial(materials).details();
    materials.reset();
    const SceneMaps maps = work();
    ASSERT_FALSE(maps.orm.isNull());
    // The default roughness, 65 %.
    EXPECT_EQ(qGreen(maps.orm.pixel(0, 0)), 166);
}

}  // namespace

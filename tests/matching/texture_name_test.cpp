#include "matching/texture_name.h"

#include "qstring_printing.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

using namespace quarlin;

namespace {

TextureName nameOf(const char* name) { return readTextureName(QString::fromUtf8(name), MapWords()); }

struct NamedTexture {
    const char* name;
    const char* material;
    MapKind kind;
    GreenDirection green = GreenDirection::unknown;
};

class TextureNames : public testing::TestWithParam<NamedTexture> {};

TEST_P(TextureNames, GiveMaterialAndMap) {
    const NamedTexture& wanted = GetParam();
    const auto map = nameOf(wanted.name).map;
    ASSERT_TRUE(map) << wanted.name;
    EXPECT_EQ(map->material.toStdString(), wanted.material) << wanted.name;
    EXPECT_EQ(map->kind, wanted.kind) << wanted.name;
    EXPECT_EQ(map->green, wanted.green) << wanted.name;
}

using enum MapKind;
using enum GreenDirection;

INSTANTIATE_TEST_SUITE_P(
    Words, TextureNames,
    testing::Values(
        NamedTexture{"brick_basecolor", "brick", baseColor}, NamedTexture{"brick_albedo", "brick", baseColor},
        NamedTexture{"brick_diffuse", "brick", baseColor}, NamedTexture{"brick_diff", "brick", baseColor},
        NamedTexture{"brick_dif", "brick", baseColor}, NamedTexture{"brick_color", "brick", baseColor},
        NamedTexture{"brick_colour", "brick", baseColor}, NamedTexture{"brick_col", "brick", baseColor},
        NamedTexture{"brick_BC", "brick", baseColor}, NamedTexture{"brick_D", "brick", baseColor},
        NamedTexture{"brick_AlbedoTransparency", "brick", baseColor},
        NamedTexture{"brick_normal", "brick", normal}, NamedTexture{"brick_norm", "brick", normal},
        NamedTexture{"brick_nrm", "brick", normal}, NamedTexture{"brick_nor", "brick", normal},
        NamedTexture{"brick_nml", "brick", normal}, NamedTexture{"brick_N", "brick", normal},
        NamedTexture{"brick_ao", "brick", occlusion}, NamedTexture{"brick_occ", "brick", occlusion},
        NamedTexture{"brick_Mixed_AO", "brick", occlusion},
        NamedTexture{"brick_ambientocclusion", "brick", occlusion},
        NamedTexture{"brick_rough", "brick", roughness}, NamedTexture{"brick_rgh", "brick", roughness},
        NamedTexture{"brick_roughness", "brick", roughness}, NamedTexture{"brick_R", "brick", roughness},
        NamedTexture{"brick_gloss", "brick", gloss}, NamedTexture{"brick_glossiness", "brick", gloss},
        NamedTexture{"brick_smoothness", "brick", gloss}, NamedTexture{"brick_metal", "brick", metallic},
        NamedTexture{"brick_metallic", "brick", metallic}, NamedTexture{"brick_met", "brick", metallic},
        NamedTexture{"brick_METALNESS", "brick", metallic}, NamedTexture{"brick_M", "brick", metallic},
        NamedTexture{"brick_height", "brick", height}, NamedTexture{"brick_orm", "brick", orm},
        NamedTexture{"brick_MaskMap", "brick", maskMap},
        NamedTexture{"brick_metallicRoughness", "brick", metallicRoughness},
        NamedTexture{"brick_AlbedoSmoothness", "brick", colorWithSmoothness}));

INSTANTIATE_TEST_SUITE_P(Spellings, TextureNames,
                         testing::Values(NamedTexture{"BRICK-NORMAL", "BRICK", normal},
                                         NamedTexture{"Brick.Normal", "Brick", normal},
                                         NamedTexture{"Brick Wall Normal", "Brick Wall", normal},
                                         NamedTexture{"BrickBaseColor", "Brick", baseColor},
                                         NamedTexture{"BrickWallAO", "BrickWall", occlusion},
                                         NamedTexture{"Bricks076Color", "Bricks076", baseColor},
                                         NamedTexture{"Brick_Base_Color", "Brick", baseColor},
                                         NamedTexture{"Brick_Ambient-Occlusion", "Brick", occlusion},
                                         NamedTexture{"Brick_NormalMap", "Brick", normal},
                                         NamedTexture{"brick_normalmap", "brick", normal},
                                         NamedTexture{"brick_roughness_map", "brick", roughness},
                                         NamedTexture{"Größe_壁_color", "Größe_壁", baseColor},
                                         NamedTexture{"normal", "", normal},
                                         NamedTexture{"Base Color", "", baseColor},
                                         NamedTexture{"Metal_Plate_Color", "Metal_Plate", baseColor},
                                         NamedTexture{"World_Map_Color", "World_Map", baseColor},
                                         NamedTexture{"Engine_V_Color", "Engine_V", baseColor},
                                         NamedTexture{"brick (color)", "brick", baseColor}));

INSTANTIATE_TEST_SUITE_P(AboutTheFile, TextureNames,
                         testing::Values(NamedTexture{"brick_diff_2k", "brick", baseColor},
                                         NamedTexture{"brick_nor_4K", "brick", normal},
                                         NamedTexture{"brick_2048_rough", "brick", roughness},
                                         NamedTexture{"2k_brick_rough", "brick", roughness},
                                         NamedTexture{"brick-ao-1024x1024", "brick", occlusion},
                                         NamedTexture{"Bricks076_2K-JPG_Color", "Bricks076", baseColor},
                                         NamedTexture{"brick_16bit_normal", "brick", normal},
                                         NamedTexture{"brick_NRM16", "brick", normal},
                                         NamedTexture{"brick_col_sRGB", "brick", baseColor},
                                         NamedTexture{"brick_color_v03", "brick", baseColor},
                                         NamedTexture{"brick_v03_color", "brick", baseColor},
                                         NamedTexture{"brick_diff_var2", "brick", baseColor},
                                         NamedTexture{"brick_COL_2K_METALNESS", "brick", baseColor},
                                         NamedTexture{"brick_METALNESS_2K_METALNESS", "brick", metallic},
                                         NamedTexture{"wood_metal_metalness", "wood_metal", metallic},
                                         NamedTexture{"brick_001_diff", "brick_001", baseColor},
                                         NamedTexture{"brick_100_diff", "brick_100", baseColor}));

INSTANTIATE_TEST_SUITE_P(NormalMaps, TextureNames,
                         testing::Values(NamedTexture{"Brick_NormalGL", "Brick", normal, openGL},
                                         NamedTexture{"brick_nor_gl_2k", "brick", normal, openGL},
                                         NamedTexture{"brick_normalgl", "brick", normal, openGL},
                                         NamedTexture{"Brick_Normal_OpenGL", "Brick", normal, openGL},
                                         NamedTexture{"Brick_Normal_map_GL", "Brick", normal, openGL},
                                         NamedTexture{"Brick_NormalDX", "Brick", normal, directX},
                                         NamedTexture{"Brick_NormalMapDX", "Brick", normal, directX},
                                         NamedTexture{"Brick_Normal_DirectX", "Brick", normal, directX}));

TEST(TextureNameWithoutMap, GivesNone) {
    for (const char* name : {"", "brick", "bricknormal", "normal_brick", "brick_2k", "2k", "map",
                             "brick_colorful", "brick_roughdx", "brick_world_map", "_"}) {
        EXPECT_FALSE(nameOf(name).map) << name;
    }
}

TEST(TextureName, SaysHowMuchAWordSays) {
    EXPECT_EQ(nameOf("rusty_color").map->evidence, Evidence::clear);
    EXPECT_EQ(nameOf("rusty_metal").map->evidence, Evidence::ambiguous);
    EXPECT_EQ(nameOf("rusty_m").map->evidence, Evidence::letter);
}

TEST(TextureName, StatesResolutionVersionAndVariant) {
    EXPECT_EQ(nameOf("brick_color_2k").resolution, 2048);
    EXPECT_EQ(nameOf("4K_brick_color").resolution, 4096);
    EXPECT_EQ(nameOf("brick_512_color").resolution, 512);
    EXPECT_EQ(nameOf("brick_color_1024x2048").resolution, 2048);
    EXPECT_EQ(nameOf("brick_color").resolution, 0);
    EXPECT_EQ(nameOf("brick_color_v03").version, 3);
    EXPECT_EQ(nameOf("brick_diff_var2").variant, 2);
}

TEST(TextureName, StatesTheTileOfAUdimTexture) {
    EXPECT_EQ(nameOf("Robot_BaseColor.1001").map->tile, 1001);
    EXPECT_EQ(nameOf("Robot_BaseColor_1012").map->tile, 1012);
    EXPECT_EQ(nameOf("Robot_BaseColor.1024").map->tile, std::nullopt) << "a resolution";
}

TEST(TextureName, HasAPlainForm) {
    EXPECT_EQ(nameOf("Bricks076_1K-PNG").plain, u"Bricks076"_s);
    EXPECT_EQ(nameOf("rusty_metal").plain, u"rusty_metal"_s);
}

TEST(MaterialKey, IsTheSameForOtherCaseAndSeparators) {
    const QString key = materialKey(u"Brick Wall"_s);
    for (const char* name : {"brick_wall", "BrickWall", "BRICK-WALL", "_brick..wall_", "brick_2k_wall"}) {
        EXPECT_EQ(materialKey(QString::fromUtf8(name)), key) << name;
    }
    EXPECT_NE(materialKey(u"bric_kwall"_s), key);
}

}  // namespace

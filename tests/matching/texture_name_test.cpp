#include "matching/texture_name.h"
#include "model/texture_slot_kind.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

using namespace quarlin;

namespace {

struct NamedTexture {
    const char* name;
    const char* material;
    TextureSlotKind slot;
    bool isGloss = false;
    bool isOpenGL = false;
    bool isDirectX = false;
};

class TextureNames : public testing::TestWithParam<NamedTexture> {};

TEST_P(TextureNames, GiveMaterialAndSlot) {
    const NamedTexture& wanted = GetParam();
    const auto name = readTextureName(QString::fromUtf8(wanted.name));
    ASSERT_TRUE(name) << wanted.name;
    EXPECT_EQ(name->material.toStdString(), wanted.material) << wanted.name;
    EXPECT_EQ(name->slot, wanted.slot) << wanted.name;
    EXPECT_EQ(name->isGloss, wanted.isGloss) << wanted.name;
    EXPECT_EQ(name->isOpenGL, wanted.isOpenGL) << wanted.name;
    EXPECT_EQ(name->isDirectX, wanted.isDirectX) << wanted.name;
}

using enum TextureSlotKind;

INSTANTIATE_TEST_SUITE_P(
    Suffixes, TextureNames,
    testing::Values(
        NamedTexture{"brick_basecolor", "brick", baseColor}, NamedTexture{"brick_albedo", "brick", baseColor},
        NamedTexture{"brick_diffuse", "brick", baseColor}, NamedTexture{"brick_diff", "brick", baseColor},
        NamedTexture{"brick_color", "brick", baseColor}, NamedTexture{"brick_colour", "brick", baseColor},
        NamedTexture{"brick_col", "brick", baseColor}, NamedTexture{"brick_normal", "brick", normal},
        NamedTexture{"brick_nrm", "brick", normal}, NamedTexture{"brick_nor", "brick", normal},
        NamedTexture{"brick_nml", "brick", normal}, NamedTexture{"brick_ao", "brick", occlusion},
        NamedTexture{"brick_occlusion", "brick", occlusion},
        NamedTexture{"brick_ambientocclusion", "brick", occlusion},
        NamedTexture{"brick_rough", "brick", roughness}, NamedTexture{"brick_roughness", "brick", roughness},
        NamedTexture{"brick_gloss", "brick", roughness, true},
        NamedTexture{"brick_glossiness", "brick", roughness, true},
        NamedTexture{"brick_smoothness", "brick", roughness, true},
        NamedTexture{"brick_metal", "brick", metallic}, NamedTexture{"brick_metallic", "brick", metallic},
        NamedTexture{"brick_metalness", "brick", metallic}));

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
                                         NamedTexture{"brick_roughness_map", "brick", roughness},
                                         NamedTexture{"Größe_壁_color", "Größe_壁", baseColor},
                                         NamedTexture{"normal", "", normal},
                                         NamedTexture{"Base Color", "", baseColor},
                                         NamedTexture{"Metal_Plate_Color", "Metal_Plate", baseColor},
                                         NamedTexture{"World_Map_Color", "World_Map", baseColor},
                                         NamedTexture{"brick (color)", "brick", baseColor}));

INSTANTIATE_TEST_SUITE_P(Resolutions, TextureNames,
                         testing::Values(NamedTexture{"brick_diff_2k", "brick", baseColor},
                                         NamedTexture{"brick_nor_4K", "brick", normal},
                                         NamedTexture{"brick_2048_rough", "brick", roughness},
                                         NamedTexture{"brick-ao-1024x1024", "brick", occlusion},
                                         NamedTexture{"Bricks076_2K-JPG_Color", "Bricks076", baseColor},
                                         NamedTexture{"brick_001_diff", "brick_001", baseColor},
                                         NamedTexture{"brick_100_diff", "brick_100", baseColor}));

INSTANTIATE_TEST_SUITE_P(
    NormalKinds, TextureNames,
    testing::Values(NamedTexture{"Brick_NormalGL", "Brick", normal, false, true, false},
                    NamedTexture{"brick_nor_gl_2k", "brick", normal, false, true, false},
                    NamedTexture{"Brick_Normal_OpenGL", "Brick", normal, false, true, false},
                    NamedTexture{"Brick_NormalDX", "Brick", normal, false, false, true},
                    NamedTexture{"Brick_Normal_DirectX", "Brick", normal, false, false, true}));

TEST(TextureNameWithoutSuffix, GivesNothing) {
    for (const char* name : {"", "brick", "brick_height", "bricknormal", "normal_brick", "brick_orm",
                             "brick_2k", "2k", "map", "brick_colorful", "brick_roughdx", "_"}) {
        EXPECT_FALSE(readTextureName(QString::fromUtf8(name))) << name;
    }
}

TEST(MaterialKey, IsTheSameForOtherCaseAndSeparators) {
    const QString key = materialKey(u"Brick Wall"_s);
    for (const char* name : {"brick_wall", "BrickWall", "BRICK-WALL", "_brick..wall_"}) {
        EXPECT_EQ(materialKey(QString::fromUtf8(name)), key) << name;
    }
    EXPECT_NE(materialKey(u"bric_kwall"_s), key);
}

}  // namespace

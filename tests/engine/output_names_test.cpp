#include "output_names.h"
#include "normal_output_names.h"
#include "qstring_printing.h"

#include "conversion_settings.h"

#include <gtest/gtest.h>

using namespace quarlin;

namespace {

TEST(OutputNames, KeepTheCaseOfTheirSuffixes) {
    const OutputNames names{QStringLiteral("Brick")};
    EXPECT_EQ(names.baseColor(), QStringLiteral("Brick_BaseColor.png"));
    EXPECT_EQ(names.orm(), QStringLiteral("Brick_ORM.png"));
    EXPECT_EQ(names.normal(), QStringLiteral("Brick_Normal.png"));
    EXPECT_EQ(names.gltf(), QStringLiteral("Brick.gltf"));
    EXPECT_EQ(names.notes(), QStringLiteral("Brick_SL_PBR_notes.txt"));
}

TEST(OutputNames, DoNotCleanTheNameAgain) {
    EXPECT_EQ(OutputNames{QStringLiteral("a b.c")}.orm(), QStringLiteral("a b.c_ORM.png"));
    EXPECT_EQ(OutputNames{QString()}.gltf(), QStringLiteral(".gltf"));
}

TEST(OutputNames, ATypedSpaceArrivesAsAnUnderscore) {
    ConversionSettings settings;
    settings.materialName = QStringLiteral("Old Brick");
    EXPECT_EQ(OutputNames{settings.safeMaterialName()}.orm(), QStringLiteral("Old_Brick_ORM.png"));
}

TEST(NormalOutputNames, AreAllLowerCase) {
    const NormalOutputNames names{QStringLiteral("Brick")};
    EXPECT_EQ(names.baseColor(), QStringLiteral("Brick_basecolor.png"));
    EXPECT_EQ(names.normal(), QStringLiteral("Brick_normal.png"));
    EXPECT_EQ(names.height(), QStringLiteral("Brick_height.png"));
    EXPECT_EQ(names.roughness(), QStringLiteral("Brick_roughness.png"));
    EXPECT_EQ(names.gloss(), QStringLiteral("Brick_gloss.png"));
    EXPECT_EQ(names.metallic(), QStringLiteral("Brick_metallic.png"));
    EXPECT_EQ(names.occlusion(), QStringLiteral("Brick_ao.png"));
    EXPECT_EQ(names.orm(), QStringLiteral("Brick_orm.png"));
    EXPECT_EQ(names.gltf(), QStringLiteral("Brick.gltf"));
    EXPECT_EQ(names.notes(), QStringLiteral("Brick_maps_notes.txt"));
}

}  // namespace

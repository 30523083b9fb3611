#include "model/output_names.h"
#include "model/normal_output_names.h"
#include "qstring_printing.h"

#include "model/conversion_settings.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

using namespace quarlin;

namespace {

TEST(OutputNames, KeepTheCaseOfTheirSuffixes) {
    const OutputNames names{u"Brick"_s};
    EXPECT_EQ(names.baseColor(), u"Brick_BaseColor.png"_s);
    EXPECT_EQ(names.orm(), u"Brick_ORM.png"_s);
    EXPECT_EQ(names.normal(), u"Brick_Normal.png"_s);
    EXPECT_EQ(names.gltf(), u"Brick.gltf"_s);
    EXPECT_EQ(names.notes(), u"Brick_SL_PBR_notes.txt"_s);
}

TEST(OutputNames, DoNotCleanTheNameAgain) {
    EXPECT_EQ(OutputNames{u"a b.c"_s}.orm(), u"a b.c_ORM.png"_s);
    EXPECT_EQ(OutputNames{QString()}.gltf(), u".gltf"_s);
}

TEST(OutputNames, ATypedSpaceArrivesAsAnUnderscore) {
    ConversionSettings settings;
    settings.materialName = u"Old Brick"_s;
    EXPECT_EQ(OutputNames{settings.safeMaterialName()}.orm(), u"Old_Brick_ORM.png"_s);
}

TEST(NormalOutputNames, AreAllLowerCase) {
    const NormalOutputNames names{u"Brick"_s};
    EXPECT_EQ(names.baseColor(), u"Brick_basecolor.png"_s);
    EXPECT_EQ(names.normal(), u"Brick_normal.png"_s);
    EXPECT_EQ(names.height(), u"Brick_height.png"_s);
    EXPECT_EQ(names.roughness(), u"Brick_roughness.png"_s);
    EXPECT_EQ(names.gloss(), u"Brick_gloss.png"_s);
    EXPECT_EQ(names.metallic(), u"Brick_metallic.png"_s);
    EXPECT_EQ(names.occlusion(), u"Brick_ao.png"_s);
    EXPECT_EQ(names.orm(), u"Brick_orm.png"_s);
    EXPECT_EQ(names.gltf(), u"Brick.gltf"_s);
    EXPECT_EQ(names.notes(), u"Brick_maps_notes.txt"_s);
}

}  // namespace

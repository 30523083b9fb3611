#include "matching/texture_set.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

using namespace quarlin;

namespace {

using enum TextureSlotKind;

MatchedTextures matched(const QStringList& names) {
    TextureFolder folder{u"/textures/Red Brick"_s, {}};
    for (const QString& name : names) {
        folder.files += folder.path + u'/' + name;
    }
    return matchTextures(folder);
}

QString path(const QString& name) { return u"/textures/Red Brick/"_s + name; }

TEST(TextureSets, GroupFilesByMaterial) {
    const MatchedTextures textures =
        matched({u"BRICK-normal.png"_s, u"brick_color.png"_s, u"wood_rough.png"_s});
    ASSERT_EQ(textures.sets.size(), 2);
    EXPECT_EQ(textures.sets[0].material, u"brick"_s);
    EXPECT_EQ(textures.sets[0].files,
              (std::map<TextureSlotKind, QString>{{baseColor, path(u"brick_color.png"_s)},
                                                  {normal, path(u"BRICK-normal.png"_s)}}));
    EXPECT_EQ(textures.sets[1].material, u"wood"_s);
    EXPECT_TRUE(textures.leftOut.empty());
}

TEST(TextureSets, AreNamedAfterTheFolderIfTheFilesNameNoMaterial) {
    EXPECT_EQ(matched({u"basecolor.png"_s}).sets.at(0).material, u"Red Brick"_s);
}

TEST(TextureSets, LeaveOutAFileThatMatchesNoSlot) {
    const MatchedTextures textures = matched({u"brick_height.png"_s});
    EXPECT_TRUE(textures.sets.empty());
    ASSERT_EQ(textures.leftOut.size(), 1);
    EXPECT_EQ(textures.leftOut[0].path, path(u"brick_height.png"_s));
    EXPECT_EQ(textures.leftOut[0].reason, u"its name matches no slot"_s);
}

TEST(TextureSets, PreferANormalMapForOpenGL) {
    const MatchedTextures textures = matched({u"brick_NormalDX.png"_s, u"brick_NormalGL.png"_s});
    EXPECT_EQ(textures.sets.at(0).files.at(normal), path(u"brick_NormalGL.png"_s));
    EXPECT_FALSE(textures.sets[0].normalIsDirectX);
    ASSERT_EQ(textures.leftOut.size(), 1);
    EXPECT_EQ(textures.leftOut[0].path, path(u"brick_NormalDX.png"_s));
}

TEST(TextureSets, SayWhichMapsMustBeInverted) {
    const TextureSet set = matched({u"brick_NormalDX.png"_s, u"brick_gloss.png"_s}).sets.at(0);
    EXPECT_TRUE(set.normalIsDirectX);
    EXPECT_TRUE(set.roughnessIsGloss);
    EXPECT_EQ(set.ambiguity, QString());
}

TEST(TextureSets, AreAmbiguousIfTwoFilesMatchOneSlot) {
    const TextureSet set = matched({u"brick_gloss.png"_s, u"brick_rough.png"_s}).sets.at(0);
    EXPECT_EQ(set.ambiguity, u"brick_gloss.png and brick_rough.png are both for Roughness / Gloss"_s);
}

}  // namespace

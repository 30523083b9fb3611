#include "matching/texture_set.h"

#include "qstring_printing.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

using namespace quarlin;

namespace {

using enum TextureSlotKind;

QString path(const QString& name) { return u"/textures/Red Brick/"_s + name; }

TextureFolder folderOf(const QStringList& names, const QStringList& unread = {}) {
    TextureFolder folder{u"/textures/Red Brick"_s, {}};
    for (const QString& name : names) {
        folder.files += path(name);
    }
    for (const QString& name : unread) {
        folder.unreadFiles += path(name);
    }
    return folder;
}

MatchedTextures matched(const QStringList& names, const QStringList& unread = {}) {
    return matchTextures(folderOf(names, unread), {});
}

TEST(TextureSets, GroupFilesByMaterial) {
    const MatchedTextures textures =
        matched({u"BRICK-normal.png"_s, u"brick_color.png"_s, u"wood_roughness.png"_s});
    ASSERT_EQ(textures.sets.size(), 2U);
    EXPECT_EQ(textures.sets[0].material, u"brick"_s);
    EXPECT_EQ(textures.sets[0].files, (MaterialInputPaths{{baseColor, {path(u"brick_color.png"_s), {}}},
                                                          {normal, {path(u"BRICK-normal.png"_s), {}}}}));
    EXPECT_EQ(textures.sets[1].material, u"wood"_s);
    EXPECT_TRUE(textures.unused.empty());
}

TEST(TextureSets, SayWhatAFileThatIsNotUsedIs) {
    const MatchedTextures textures =
        matched({u"brick_color.png"_s, u"brick_height.png"_s, u"brick_opacity.png"_s, u"notes.png"_s},
                {u"brick_normal.exr"_s, u"sky.hdr"_s});
    ASSERT_EQ(textures.unused.size(), 5U);
    EXPECT_EQ(textures.unused[0].text, u"it is a height map, which a material has no slot for"_s);
    EXPECT_EQ(textures.unused[1].text, u"EXR files are not read, so the material has no Normal texture"_s);
    EXPECT_EQ(textures.unused[2].text, u"it is an opacity map, which a material has no slot for"_s);
    EXPECT_EQ(textures.unused[3].text, u"its name matches no slot"_s);
    EXPECT_EQ(textures.unused[4].text, u"HDR files are not read"_s);
}

TEST(TextureSets, NameTheTilesThatTheyCannotUse) {
    const MatchedTextures textures = matched({u"a_color.1001.png"_s, u"a_color.1002.png"_s});
    EXPECT_EQ(textures.sets.at(0).refusal, u"UDIM tiles are not supported (a_color.1001.png)"_s);
    EXPECT_EQ(textures.unused.at(0).reason, UnusedReason::tile);
}

TEST(TextureSets, UseATextureInOnePieceRatherThanTiles) {
    const MatchedTextures textures = matched({u"a_color.1001.png"_s, u"a_color.png"_s});
    EXPECT_EQ(textures.sets.at(0).files.at(baseColor).path, path(u"a_color.png"_s));
    EXPECT_EQ(textures.sets[0].refusal, QString());
}

TEST(TextureSets, OfTwoThousandFilesAreFoundTogether) {
    QStringList names;
    for (int index = 0; index < 500; ++index) {
        const QString name = u"Wall%1_2K-PNG_"_s.arg(index);
        names += {name + u"Color.png"_s, name + u"NormalGL.png"_s, name + u"Roughness.png"_s,
                  name + u"Displacement.png"_s};
    }
    const MatchedTextures textures = matched(names);
    EXPECT_EQ(textures.sets.size(), 500U);
    EXPECT_EQ(textures.unused.size(), 500U);
}

TEST(BaseColors, AreThoseOfEachMaterialAndPicturesWithoutMaterial) {
    const TextureFolder folder =
        folderOf({u"brick_color_1k.png"_s, u"brick_color_2k.png"_s, u"brick_normal.png"_s, u"photo.jpg"_s,
                  u"wall_orm.png"_s, u"rusty_metal.jpg"_s},
                 {u"sky.exr"_s});
    const BaseColors colors = findBaseColors(folder, {});
    EXPECT_EQ(colors.files,
              (QStringList{path(u"brick_color_2k.png"_s), path(u"photo.jpg"_s), path(u"rusty_metal.jpg"_s)}));
    QStringList unused;
    for (const UnusedFile& file : colors.unused) {
        unused += file.path.section(u'/', -1) + u' ' + rawValue(file.reason);
    }
    EXPECT_EQ(unused,
              (QStringList{u"brick_color_1k.png second-choice"_s, u"brick_normal.png not-base-color"_s,
                           u"sky.exr format-not-read"_s, u"wall_orm.png not-base-color"_s}));
}

}  // namespace

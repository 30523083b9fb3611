#include "model/conversion_settings.h"
#include "model/texture_asset.h"
#include "model/texture_slot_kind.h"
#include "store_fixture.h"
#include "stores/material_store.h"
#include "stores/normal_generator_store.h"

#include <QDir>

using namespace Qt::StringLiterals;

using namespace quarlin;
using namespace quarlin::fixtures;

namespace {

/// The log, oldest first, without its first line.
QStringList logOf(const ToolStore& store) {
    QStringList lines = store.logLines();
    std::reverse(lines.begin(), lines.end());
    return lines.mid(1);
}

class IncomingMaterialFiles : public StoreFixture<MaterialStore> {
protected:
    QStringList stampedAll(const QStringList& messages) const {
        QStringList lines;
        for (const QString& message : messages) {
            lines << stamped(message);
        }
        return lines;
    }

    QString fileOf(TextureSlotKind slot) const {
        const auto texture = store.textures().find(slot);
        return texture == store.textures().end() ? QString() : texture->second.fileName;
    }
};

TEST_F(IncomingMaterialFiles, FillTheSlotsThatTheirNamesMatch) {
    store.importFiles({folder.texture(u"brick_roughness.png"_s), folder.texture(u"brick_basecolor.png"_s),
                       folder.texture(u"brick_normal.png"_s)});
    EXPECT_EQ(fileOf(TextureSlotKind::baseColor), u"brick_basecolor.png"_s);
    EXPECT_EQ(fileOf(TextureSlotKind::normal), u"brick_normal.png"_s);
    EXPECT_EQ(fileOf(TextureSlotKind::roughness), u"brick_roughness.png"_s);
    EXPECT_EQ(store.settings().materialName, u"brick"_s);
    EXPECT_EQ(logOf(store),
              stampedAll({u"Base Color loaded: brick_basecolor.png, 4x4"_s,
                          u"Normal loaded: brick_normal.png, 4x4"_s,
                          u"Roughness / Gloss loaded: brick_roughness.png, 4x4"_s, u"Preview updated."_s}));
}

TEST_F(IncomingMaterialFiles, CanBeAFolder) {
    folder.texture(u"brick_basecolor.png"_s);
    folder.texture(u"brick_ao.png"_s);
    store.importFiles({folder.url()});
    EXPECT_EQ(fileOf(TextureSlotKind::baseColor), u"brick_basecolor.png"_s);
    EXPECT_EQ(fileOf(TextureSlotKind::occlusion), u"brick_ao.png"_s);
}

TEST_F(IncomingMaterialFiles, OfSeveralMaterialsAreThoseOfTheFirst) {
    store.importFiles({folder.texture(u"wood_basecolor.png"_s), folder.texture(u"brick_basecolor.png"_s),
                       folder.texture(u"wood_normal.png"_s)});
    EXPECT_EQ(fileOf(TextureSlotKind::baseColor), u"brick_basecolor.png"_s);
    EXPECT_EQ(fileOf(TextureSlotKind::normal), QString());
    EXPECT_EQ(logOf(store).constFirst(),
              stamped(u"2 materials found: brick, wood. Loading the first one."_s));
}

TEST_F(IncomingMaterialFiles, ThatAreNotUsedAreReported) {
    store.importFiles({folder.texture(u"brick_basecolor.png"_s), folder.texture(u"brick_height.png"_s),
                       folder.texture(u"unrelated.png"_s)});
    const QStringList log = logOf(store);
    EXPECT_TRUE(log[0].startsWith(stamped(u"Not used: brick_height.png, "_s))) << log[0].toStdString();
    EXPECT_EQ(log[1], stamped(u"Not used: unrelated.png, its name matches no slot"_s));
}

TEST_F(IncomingMaterialFiles, SwitchOnWhatTheirNamesTell) {
    store.importFiles({folder.texture(u"brick_basecolor.png"_s), folder.texture(u"brick_gloss.png"_s),
                       folder.texture(u"brick_normal_dx.png"_s)});
    EXPECT_TRUE(store.settings().roughnessInputIsGloss);
    EXPECT_TRUE(store.settings().flipNormalGreen);
    EXPECT_TRUE(logOf(store).contains(stamped(u"The roughness texture is a gloss map by its name."_s)));
    EXPECT_TRUE(logOf(store).contains(stamped(u"The normal map is for DirectX by its name."_s)));
}

TEST_F(IncomingMaterialFiles, UseTheChannelsOfPackedMaps) {
    store.importFiles({folder.texture(u"brick_basecolor.png"_s),
                       folder.texture(u"brick_orm.png"_s, 4, 4, QColor(11, 22, 33))});
    EXPECT_EQ(fileOf(TextureSlotKind::roughness), u"brick_orm.png, green"_s);
    const QColor preview = store.previews().at(MaterialImage::orm).pixelColor(1, 1);
    EXPECT_EQ(preview, QColor(11, 22, 33));
    const QImage& card = store.textures().at(TextureSlotKind::metallic).preview;
    EXPECT_EQ(card.pixelColor(1, 1), QColor(33, 33, 33));
}

TEST_F(IncomingMaterialFiles, KeepTheOtherSlotsAndATypedName) {
    store.importTexture(folder.texture(u"metal.png"_s), TextureSlotKind::metallic);
    ConversionSettings settings = store.settings();
    settings.materialName = u"Mine"_s;
    store.setSettings(settings);
    store.importFiles({folder.texture(u"brick_basecolor.png"_s), folder.texture(u"brick_normal.png"_s)});
    EXPECT_EQ(fileOf(TextureSlotKind::metallic), u"metal.png"_s);
    EXPECT_EQ(store.settings().materialName, u"Mine"_s);
}

TEST_F(IncomingMaterialFiles, ThatCannotBeReadDoNotStopTheOthers) {
    store.importFiles({folder.noTexture(u"brick_basecolor.png"_s), folder.texture(u"brick_normal.png"_s)});
    EXPECT_EQ(fileOf(TextureSlotKind::normal), u"brick_normal.png"_s);
    EXPECT_TRUE(logOf(store).contains(stamped(u"Load failed: Could not read image: brick_basecolor.png"_s)));
    EXPECT_EQ(store.settings().materialName, ConversionSettings::defaultMaterialName());
}

TEST_F(IncomingMaterialFiles, FailTogetherIfNoNameMatches) {
    store.importFiles({folder.texture(u"one.png"_s), folder.texture(u"two.png"_s)});
    EXPECT_FALSE(store.hasAnyTexture());
    EXPECT_EQ(newest(), stamped(u"Load failed: No file name matches a slot."_s));
}

TEST_F(IncomingMaterialFiles, FailInAFolderWithoutImages) {
    ASSERT_TRUE(QDir(folder.url().toLocalFile()).mkdir(u"empty"_s));
    store.importFiles({QUrl::fromLocalFile(folder.path(u"empty"_s))});
    EXPECT_EQ(newest(), stamped(u"Load failed: No image files in folder: empty"_s));
}

TEST_F(IncomingMaterialFiles, AloneGoWhereTheirNameSaysOrElseToTheBaseColor) {
    store.importFiles({folder.texture(u"brick_normal.png"_s)});
    EXPECT_EQ(fileOf(TextureSlotKind::normal), u"brick_normal.png"_s);
    store.importFiles({folder.texture(u"photo.png"_s)});
    EXPECT_EQ(fileOf(TextureSlotKind::baseColor), u"photo.png"_s);
    EXPECT_EQ(store.settings().materialName, u"photo"_s);
}

TEST_F(IncomingMaterialFiles, ThatAreMissingAreReported) {
    store.importFiles({QUrl::fromLocalFile(folder.path(u"gone.png"_s))});
    EXPECT_EQ(newest(), stamped(u"Load failed: Could not read image: gone.png"_s));
}

class IncomingSourceFiles : public StoreFixture<NormalGeneratorStore> {};

TEST_F(IncomingSourceFiles, AloneAreTheSourceWhateverTheirName) {
    store.importFiles({folder.texture(u"brick_normal.png"_s)});
    EXPECT_EQ(store.source()->fileName, u"brick_normal.png"_s);
}

TEST_F(IncomingSourceFiles, AreTheFirstBaseColor) {
    store.importFiles({folder.texture(u"wood_basecolor.png"_s), folder.texture(u"brick_normal.png"_s),
                       folder.texture(u"brick_basecolor.png"_s)});
    EXPECT_EQ(store.source()->fileName, u"brick_basecolor.png"_s);
    EXPECT_EQ(logOf(store).constFirst(),
              stamped(u"2 sources found: brick_basecolor.png, wood_basecolor.png. Loading the first one."_s));
}

TEST_F(IncomingSourceFiles, FailWithoutABaseColor) {
    store.importFiles({folder.texture(u"brick_normal.png"_s), folder.texture(u"brick_ao.png"_s)});
    EXPECT_FALSE(store.canExport());
    EXPECT_EQ(newest(), stamped(u"Load failed: No file is a base color."_s));
}

}  // namespace

#include "stores/material_store.h"

#include "model/conversion_settings.h"
#include "model/material_set.h"
#include "model/output_resolution.h"
#include "model/previews.h"
#include "model/texture_slot_kind.h"
#include "store_fixture.h"

#include <QFile>
#include <QFileInfo>

using namespace Qt::StringLiterals;

using namespace quarlin;

namespace {

constexpr auto baseColor = TextureSlotKind::baseColor;

class MaterialStoreTest : public fixtures::StoreFixture<MaterialStore> {
protected:
    void type(const QString& name) {
        ConversionSettings settings = store.settings();
        settings.materialName = name;
        store.setSettings(settings);
    }

    void exportSmall() {
        ConversionSettings settings = store.settings();
        settings.outputResolution = OutputResolution::matchBase;
        store.setSettings(settings);
        store.exportMaterialSet();
    }
};

TEST_F(MaterialStoreTest, StartsEmptyWithItsHint) {
    EXPECT_TRUE(store.textures().empty());
    EXPECT_EQ(store.settings(), ConversionSettings());
    EXPECT_TRUE(store.previews().empty());
    EXPECT_EQ(store.lastExportURL(), std::nullopt);
    EXPECT_EQ(store.logLines(),
              QStringList{
                  u"Load Base Color first, then add Normal, AO, Roughness/Gloss and Metallic as needed."_s});
    EXPECT_FALSE(store.canExport());
    EXPECT_FALSE(store.hasAnyTexture());
}

TEST_F(MaterialStoreTest, AsksForATextureByTheTitleOfItsSlot) {
    store.chooseTexture(TextureSlotKind::roughness);
    const std::vector types{ImageFileType::png, ImageFileType::jpeg, ImageFileType::tiff,
                            ImageFileType::bmp, ImageFileType::gif,  ImageFileType::heic};
    ASSERT_EQ(chooser.fileQuestions.size(), 1U);
    EXPECT_EQ(chooser.fileQuestions[0],
              (FileQuestion{u"Choose Roughness / Gloss Texture"_s, u"Use Texture"_s, types}));
}

TEST_F(MaterialStoreTest, ChangesNothingWhenTheChoiceIsCanceled) {
    const QStringList before = store.logLines();
    store.chooseTexture(baseColor);
    EXPECT_TRUE(store.textures().empty());
    EXPECT_EQ(store.logLines(), before);
}

TEST_F(MaterialStoreTest, ImportsTheChosenFile) {
    chooser.file = folder.texture(u"Normal.png"_s, 8, 4);
    store.chooseTexture(TextureSlotKind::normal);
    ASSERT_TRUE(store.textures().contains(TextureSlotKind::normal));
    EXPECT_EQ(store.textures().at(TextureSlotKind::normal).url, *chooser.file);
}

TEST_F(MaterialStoreTest, LogsTheImportAndThePreview) {
    store.importTexture(folder.texture(u"Brick_Wall.png"_s, 16, 8), baseColor);
    EXPECT_EQ(
        store.logLines().first(2),
        QStringList({stamped(u"Preview updated."_s), stamped(u"Base Color loaded: Brick_Wall.png, 16x8"_s)}));
    EXPECT_FALSE(store.previews().empty());
}

TEST_F(MaterialStoreTest, TakesTheNameOfTheFirstBaseColor) {
    store.importTexture(folder.texture(u"Brick_Wall.png"_s), baseColor);
    EXPECT_EQ(store.settings().materialName, u"Brick_Wall"_s);
    store.importTexture(folder.texture(u"Other.png"_s), baseColor);
    EXPECT_EQ(store.settings().materialName, u"Brick_Wall"_s);
}

TEST_F(MaterialStoreTest, TakesNoNameFromOtherSlots) {
    for (const TextureSlotKind slot : allCases<TextureSlotKind>()) {
        if (slot != baseColor) {
            store.importTexture(folder.texture(u"Some.png"_s), slot);
            EXPECT_EQ(store.settings(), ConversionSettings()) << rawValue(slot).toStdString();
        }
    }
}

TEST_F(MaterialStoreTest, KeepsATypedName) {
    type(u"Mine"_s);
    store.importTexture(folder.texture(u"Brick.png"_s), baseColor);
    EXPECT_EQ(store.settings().materialName, u"Mine"_s);
}

TEST_F(MaterialStoreTest, KeepsATypedEmptyName) {
    type({});
    store.importTexture(folder.texture(u"Brick.png"_s), baseColor);
    EXPECT_EQ(store.settings().materialName, QString());
}

TEST_F(MaterialStoreTest, CutsOnlyTheLastExtensionFromAnAdoptedName) {
    store.importTexture(folder.texture(u"wall.old.png"_s), baseColor);
    EXPECT_EQ(store.settings().materialName, u"wall.old"_s);
}

TEST_F(MaterialStoreTest, ReplacesTheTextureOfAFilledSlot) {
    store.importTexture(folder.texture(u"a.png"_s, 4, 4), baseColor);
    store.importTexture(folder.texture(u"b.png"_s, 6, 2), baseColor);
    EXPECT_EQ(store.textures().size(), 1U);
    EXPECT_EQ(store.textures().at(baseColor).sizeLabel(), u"6x2"_s);
}

TEST_F(MaterialStoreTest, KeepsTheSlotWhenAFileCannotBeLoaded) {
    store.importTexture(folder.texture(u"a.png"_s), baseColor);
    const QStringList before = store.logLines();
    store.importTexture(folder.noTexture(u"notes.txt"_s), baseColor);
    EXPECT_EQ(store.textures().at(baseColor).fileName, u"a.png"_s);
    EXPECT_EQ(newest(), stamped(u"Load failed: Could not read image: notes.txt"_s));
    EXPECT_EQ(store.logLines().mid(1), before);
}

TEST_F(MaterialStoreTest, LeavesAnEmptySlotAndTheNameWhenAFileCannotBeLoaded) {
    store.importTexture(folder.noTexture(u"notes.txt"_s), baseColor);
    EXPECT_FALSE(store.hasAnyTexture());
    EXPECT_EQ(store.settings(), ConversionSettings());
}

TEST_F(MaterialStoreTest, ImportsADropOnlyAfterItWasAccepted) {
    const auto data = dragged({folder.texture(u"a.png"_s)});
    EXPECT_TRUE(store.acceptDrop(*data, baseColor));
    EXPECT_FALSE(store.hasAnyTexture());
    runEventLoop();
    EXPECT_TRUE(store.canExport());
}

TEST_F(MaterialStoreTest, TakesOnlyTheFirstFileOfADrop) {
    const auto data = dragged(
        {QUrl(u"https://example.org/x.png"_s), folder.texture(u"a.png"_s), folder.texture(u"b.png"_s)});
    EXPECT_TRUE(store.acceptDrop(*data, TextureSlotKind::normal));
    runEventLoop();
    EXPECT_EQ(store.textures().size(), 1U);
    EXPECT_EQ(store.textures().at(TextureSlotKind::normal).fileName, u"a.png"_s);
}

TEST_F(MaterialStoreTest, RefusesADropWithoutAFile) {
    const QStringList before = store.logLines();
    QMimeData text;
    text.setText(u"plain"_s);
    EXPECT_FALSE(store.acceptDrop(text, baseColor));
    EXPECT_FALSE(store.acceptDrop(*dragged({QUrl(u"https://example.org/x.png"_s)}), baseColor));
    runEventLoop();
    EXPECT_EQ(store.logLines(), before);
}

TEST_F(MaterialStoreTest, AcceptsADropThatTurnsOutUnreadable) {
    EXPECT_TRUE(store.acceptDrop(*dragged({folder.noTexture(u"a.png"_s)}), baseColor));
    runEventLoop();
    EXPECT_EQ(newest(), stamped(u"Load failed: Could not read image: a.png"_s));
}

TEST_F(MaterialStoreTest, ForgetsADropWhenItIsGone) {
    const auto data = dragged({folder.texture(u"a.png"_s)});
    int announced = 0;
    QObject::connect(&store, &MaterialStore::willChange, [&] { ++announced; });
    EXPECT_TRUE(store.acceptDrop(*data, baseColor));
    owned.reset();
    runEventLoop();
    EXPECT_EQ(announced, 0);
}

TEST_F(MaterialStoreTest, RemovesATextureAndRebuildsThePreviewOfTheRest) {
    store.importTexture(folder.texture(u"a.png"_s), baseColor);
    store.importTexture(folder.texture(u"n.png"_s), TextureSlotKind::normal);
    store.removeTexture(TextureSlotKind::normal);
    EXPECT_EQ(store.textures().size(), 1U);
    EXPECT_EQ(store.logLines().first(2),
              QStringList({stamped(u"Preview updated."_s), stamped(u"Normal removed."_s)}));
    EXPECT_TRUE(store.previews().contains(OutputPreviewKind::baseColor));
}

TEST_F(MaterialStoreTest, ClearsThePreviewsWithTheLastTexture) {
    store.importTexture(folder.texture(u"a.png"_s), baseColor);
    store.removeTexture(baseColor);
    EXPECT_FALSE(store.hasAnyTexture());
    EXPECT_TRUE(store.previews().empty());
    EXPECT_EQ(newest(), stamped(u"Base Color removed."_s));
}

TEST_F(MaterialStoreTest, LogsTheRemovalOfNothing) {
    store.removeTexture(TextureSlotKind::metallic);
    EXPECT_EQ(newest(), stamped(u"Metallic removed."_s));
}

TEST_F(MaterialStoreTest, KeepsNameAndSettingsWhenATextureIsRemoved) {
    store.importTexture(folder.texture(u"Brick.png"_s), baseColor);
    store.removeTexture(baseColor);
    EXPECT_EQ(store.settings().materialName, u"Brick"_s);
}

TEST_F(MaterialStoreTest, ResetsToAFreshStateWithOneUnstampedLine) {
    chooser.folder = folder.url();
    store.importTexture(folder.texture(u"Brick.png"_s), baseColor);
    exportSmall();
    ASSERT_NE(store.lastExportURL(), std::nullopt);
    store.reset();
    EXPECT_FALSE(store.hasAnyTexture());
    EXPECT_TRUE(store.previews().empty());
    EXPECT_EQ(store.lastExportURL(), std::nullopt);
    EXPECT_EQ(store.settings(), ConversionSettings());
    EXPECT_EQ(store.logLines(), QStringList{u"Inputs cleared."_s});
}

TEST_F(MaterialStoreTest, LogsNoPreviewOfNothing) {
    const QStringList before = store.logLines();
    store.buildPreview();
    EXPECT_TRUE(store.previews().empty());
    EXPECT_EQ(store.logLines(), before);
}

TEST_F(MaterialStoreTest, KeepsThePreviewsWhenTheyCannotBeBuilt) {
    const QUrl file = folder.texture(u"a.png"_s);
    store.importTexture(file, baseColor);
    const OutputPreviews before = store.previews();
    ASSERT_TRUE(QFile::remove(file.toLocalFile()));
    store.buildPreview();
    EXPECT_EQ(newest(), stamped(u"Preview failed: Could not read image: a.png"_s));
    EXPECT_EQ(store.previews(), before);
}

TEST_F(MaterialStoreTest, RebuildsNoPreviewForAChangedSetting) {
    store.importTexture(folder.texture(u"a.png"_s), baseColor);
    const QStringList before = store.logLines();
    const qint64 picture = store.previews().at(OutputPreviewKind::orm).cacheKey();
    ConversionSettings settings = store.settings();
    settings.defaultRoughness = 0.1;
    store.setSettings(settings);
    runEventLoop();
    EXPECT_EQ(store.logLines(), before);
    EXPECT_EQ(store.previews().at(OutputPreviewKind::orm).cacheKey(), picture);
}

TEST_F(MaterialStoreTest, BlocksAnExportWithoutBaseColorAndAsksForNoFolder) {
    store.importTexture(folder.texture(u"n.png"_s), TextureSlotKind::normal);
    store.exportMaterialSet();
    EXPECT_EQ(newest(), stamped(u"Export blocked: Base Color is required."_s));
    EXPECT_TRUE(chooser.folderQuestions.empty());
}

TEST_F(MaterialStoreTest, AsksWhereToExportTo) {
    store.importTexture(folder.texture(u"a.png"_s), baseColor);
    const QStringList before = store.logLines();
    store.exportMaterialSet();
    ASSERT_EQ(chooser.folderQuestions.size(), 1U);
    EXPECT_EQ(chooser.folderQuestions[0], (FolderQuestion{u"Choose Export Folder"_s, u"Export Here"_s}));
    EXPECT_EQ(store.logLines(), before);
    EXPECT_EQ(store.lastExportURL(), std::nullopt);
}

TEST_F(MaterialStoreTest, LogsTheFolderAndEveryWrittenFile) {
    chooser.folder = folder.url();
    store.importTexture(folder.texture(u"Brick.png"_s), baseColor);
    exportSmall();
    const QString into = folder.path(u"Brick"_s);
    EXPECT_EQ(store.logLines().first(5),
              QStringList({stamped(u"Wrote Brick_SL_PBR_notes.txt"_s), stamped(u"Wrote Brick.gltf"_s),
                           stamped(u"Wrote Brick_ORM.png"_s), stamped(u"Wrote Brick_BaseColor.png"_s),
                           stamped(u"Export complete: "_s + into)}));
    ASSERT_NE(store.lastExportURL(), std::nullopt);
    EXPECT_EQ(QFileInfo(store.lastExportURL()->toLocalFile()), QFileInfo(into));
    EXPECT_TRUE(QFile::exists(into + u"/Brick_ORM.png"_s));
}

TEST_F(MaterialStoreTest, KeepsTheLastExportWhenOneFails) {
    store.importTexture(folder.texture(u"Brick.png"_s), baseColor);
    chooser.folder = folder.url();
    exportSmall();
    const auto before = store.lastExportURL();
    chooser.folder = folder.blocked();
    exportSmall();
    EXPECT_TRUE(newest().startsWith(stamped(u"Export failed: "_s))) << newest().toStdString();
    EXPECT_EQ(store.lastExportURL(), before);
}

TEST_F(MaterialStoreTest, LogsAFailedExportInOneLine) {
    const QUrl file = folder.texture(u"Brick.png"_s);
    store.importTexture(file, baseColor);
    ASSERT_TRUE(QFile::remove(file.toLocalFile()));
    chooser.folder = folder.url();
    const QStringList before = store.logLines();
    exportSmall();
    EXPECT_EQ(newest(), stamped(u"Export failed: Could not read image: Brick.png"_s));
    EXPECT_EQ(store.logLines().mid(1), before);
}

TEST_F(MaterialStoreTest, NeverHoldsMoreThanEightyLines) {
    for (int line = 0; line < 100; ++line) {
        store.removeTexture(TextureSlotKind::normal);
    }
    EXPECT_EQ(store.logLines().size(), 80);
    EXPECT_FALSE(store.logLines().contains(
        u"Load Base Color first, then add Normal, AO, Roughness/Gloss and Metallic as needed."_s));
}

TEST_F(MaterialStoreTest, AnnouncesEveryChangeBeforeItIsMade) {
    QList<std::size_t> textures;
    QList<std::size_t> previews;
    QStringList names;
    QStringList lines;
    QObject::connect(&store, &MaterialStore::willChange, [&] {
        textures << store.textures().size();
        previews << store.previews().size();
        names << store.settings().materialName;
        lines << newest();
    });
    store.importTexture(folder.texture(u"Brick.png"_s), baseColor);
    // Textures, name, log line, previews, log line: each still has its old value when it is announced.
    ASSERT_EQ(textures.size(), 5);
    EXPECT_EQ(textures, QList<std::size_t>({0, 1, 1, 1, 1}));
    const QString untouched = ConversionSettings::defaultMaterialName();
    const QString adopted = u"Brick"_s;
    EXPECT_EQ(names, QStringList({untouched, untouched, adopted, adopted, adopted}));
    EXPECT_TRUE(lines[2].startsWith(u"Load Base Color first"_s));
    EXPECT_EQ(lines[3], stamped(u"Base Color loaded: Brick.png, 4x4"_s));
    EXPECT_EQ(previews[3], 0U);
    EXPECT_EQ(previews[4], store.previews().size());
}

TEST_F(MaterialStoreTest, NamesThePropertyThatChanges) {
    using enum StoreProperty;
    QList<StoreProperty> announced;
    QObject::connect(&store, &MaterialStore::willChange,
                     [&](StoreProperty property) { announced << property; });
    store.importTexture(folder.texture(u"Brick.png"_s), baseColor);
    EXPECT_EQ(announced, QList({inputs, settings, log, previews, log}));
    announced.clear();
    store.reset();
    EXPECT_EQ(announced, QList({inputs, previews, settings, lastExport, log}));
}

TEST_F(MaterialStoreTest, AnnouncesANewSettingBeforeItIsThere) {
    double announced = -1;
    QObject::connect(&store, &MaterialStore::willChange,
                     [&] { announced = store.settings().defaultMetallic; });
    ConversionSettings settings;
    settings.defaultMetallic = 0.5;
    store.setSettings(settings);
    EXPECT_EQ(announced, 0.0);
    EXPECT_EQ(store.settings().defaultMetallic, 0.5);
}

TEST_F(MaterialStoreTest, SignalsWhenTheEngineRuns) {
    QStringList phases;
    QObject::connect(&store, &MaterialStore::workStarted, [&] { phases << u"started"_s; });
    QObject::connect(&store, &MaterialStore::workFinished, [&] { phases << u"finished"_s; });
    store.importTexture(folder.noTexture(u"a.png"_s), baseColor);
    EXPECT_EQ(phases, QStringList({u"started"_s, u"finished"_s}));
}

}  // namespace

#include "normal_generator_store.h"

#include "store_fixture.h"

#include <QFile>
#include <QFileInfo>

using namespace quarlin;

namespace {

class GeneratorStoreTest : public fixtures::StoreFixture<NormalGeneratorStore> {
protected:
    void exportSmall() {
        NormalGeneratorSettings settings = store.settings();
        settings.outputResolution = OutputResolution::matchBase;
        store.setSettings(settings);
        store.exportSet();
    }
};

TEST_F(GeneratorStoreTest, StartsEmptyWithItsHint) {
    EXPECT_EQ(store.source().has_value(), false);
    EXPECT_EQ(store.settings(), NormalGeneratorSettings());
    EXPECT_TRUE(store.previews().empty());
    EXPECT_EQ(store.lastExportURL(), std::nullopt);
    EXPECT_EQ(store.logLines(),
              QStringList{QStringLiteral("Load one source texture to generate Normal, Roughness, "
                                         "Gloss, Metallic, AO and ORM maps.")});
    EXPECT_FALSE(store.canExport());
}

TEST_F(GeneratorStoreTest, AsksForTheSource) {
    const QStringList before = store.logLines();
    store.chooseSourceTexture();
    const std::vector types{ImageFileType::png, ImageFileType::jpeg, ImageFileType::tiff,
                            ImageFileType::bmp, ImageFileType::gif,  ImageFileType::heic};
    ASSERT_EQ(chooser.fileQuestions.size(), 1U);
    EXPECT_EQ(chooser.fileQuestions[0],
              (FileQuestion{QStringLiteral("Choose Source Texture"), QStringLiteral("Use Texture"), types}));
    EXPECT_EQ(store.logLines(), before);
}

TEST_F(GeneratorStoreTest, ImportsTheChosenFile) {
    chooser.file = folder.texture(QStringLiteral("Stone.png"), 8, 4);
    store.chooseSourceTexture();
    ASSERT_TRUE(store.canExport());
    EXPECT_EQ(store.source()->url, *chooser.file);
    EXPECT_EQ(store.logLines().first(2),
              QStringList({stamped(QStringLiteral("Generated map preview updated.")),
                           stamped(QStringLiteral("Source loaded: Stone.png, 8x4"))}));
    EXPECT_EQ(store.previews().size(), allCases<NormalPreviewKind>().size());
}

TEST_F(GeneratorStoreTest, TakesTheNameOfTheFirstSource) {
    store.importSourceTexture(folder.texture(QStringLiteral("Stone.png")));
    EXPECT_EQ(store.settings().materialName, QStringLiteral("Stone"));
    store.importSourceTexture(folder.texture(QStringLiteral("Wood.png")));
    EXPECT_EQ(store.settings().materialName, QStringLiteral("Stone"));
    EXPECT_EQ(store.source()->fileName, QStringLiteral("Wood.png"));
}

TEST_F(GeneratorStoreTest, KeepsATypedName) {
    NormalGeneratorSettings settings;
    settings.materialName = QStringLiteral("Mine");
    store.setSettings(settings);
    store.importSourceTexture(folder.texture(QStringLiteral("Stone.png")));
    EXPECT_EQ(store.settings(), settings);
}

TEST_F(GeneratorStoreTest, KeepsEverythingWhenAFileCannotBeLoaded) {
    store.importSourceTexture(folder.texture(QStringLiteral("Stone.png")));
    const QStringList before = store.logLines();
    const NormalPreviews previews = store.previews();
    store.importSourceTexture(folder.noTexture(QStringLiteral("notes.txt")));
    EXPECT_EQ(newest(), stamped(QStringLiteral("Load failed: Could not read image: notes.txt")));
    EXPECT_EQ(store.logLines().mid(1), before);
    EXPECT_EQ(store.source()->fileName, QStringLiteral("Stone.png"));
    EXPECT_EQ(store.previews(), previews);
}

TEST_F(GeneratorStoreTest, ImportsTheFirstDroppedFileAfterTheDrop) {
    const auto data =
        dragged({folder.texture(QStringLiteral("a.png")), folder.texture(QStringLiteral("b.png"))});
    EXPECT_TRUE(store.acceptDrop(*data));
    EXPECT_FALSE(store.canExport());
    runEventLoop();
    ASSERT_TRUE(store.canExport());
    EXPECT_EQ(store.source()->fileName, QStringLiteral("a.png"));
}

TEST_F(GeneratorStoreTest, RefusesADropWithoutAFile) {
    QMimeData text;
    text.setText(QStringLiteral("plain"));
    EXPECT_FALSE(store.acceptDrop(text));
}

TEST_F(GeneratorStoreTest, AcceptsADropThatTurnsOutUnreadable) {
    EXPECT_TRUE(store.acceptDrop(*dragged({folder.noTexture(QStringLiteral("a.png"))})));
    runEventLoop();
    EXPECT_TRUE(newest().startsWith(stamped(QStringLiteral("Load failed: "))));
}

TEST_F(GeneratorStoreTest, ForgetsADropWhenItIsGone) {
    int announced = 0;
    QObject::connect(&store, &NormalGeneratorStore::willChange, [&] { ++announced; });
    EXPECT_TRUE(store.acceptDrop(*dragged({folder.texture(QStringLiteral("a.png"))})));
    owned.reset();
    runEventLoop();
    EXPECT_EQ(announced, 0);
}

TEST_F(GeneratorStoreTest, RemovesTheSourceAndKeepsSettingsAndExportFolder) {
    chooser.folder = folder.url();
    store.importSourceTexture(folder.texture(QStringLiteral("Stone.png")));
    exportSmall();
    const auto exported = store.lastExportURL();
    const NormalGeneratorSettings settings = store.settings();
    store.removeSourceTexture();
    EXPECT_FALSE(store.canExport());
    EXPECT_TRUE(store.previews().empty());
    EXPECT_EQ(newest(), stamped(QStringLiteral("Source removed.")));
    EXPECT_EQ(store.settings(), settings);
    EXPECT_NE(exported, std::nullopt);
    EXPECT_EQ(store.lastExportURL(), exported);
}

TEST_F(GeneratorStoreTest, ResetsToAFreshStateWithOneUnstampedLine) {
    chooser.folder = folder.url();
    store.importSourceTexture(folder.texture(QStringLiteral("Stone.png")));
    exportSmall();
    store.reset();
    EXPECT_FALSE(store.canExport());
    EXPECT_TRUE(store.previews().empty());
    EXPECT_EQ(store.settings(), NormalGeneratorSettings());
    EXPECT_EQ(store.lastExportURL(), std::nullopt);
    EXPECT_EQ(store.logLines(), QStringList{QStringLiteral("Inputs cleared.")});
}

TEST_F(GeneratorStoreTest, LogsNoPreviewOfNothing) {
    const QStringList before = store.logLines();
    store.buildPreview();
    EXPECT_EQ(store.logLines(), before);
}

TEST_F(GeneratorStoreTest, KeepsThePreviewsWhenTheyCannotBeBuilt) {
    const QUrl file = folder.texture(QStringLiteral("Stone.png"));
    store.importSourceTexture(file);
    const NormalPreviews before = store.previews();
    ASSERT_TRUE(QFile::remove(file.toLocalFile()));
    store.buildPreview();
    EXPECT_EQ(newest(), stamped(QStringLiteral("Preview failed: Could not read image: Stone.png")));
    EXPECT_EQ(store.previews(), before);
}

TEST_F(GeneratorStoreTest, RebuildsNoPreviewForAChangedSetting) {
    store.importSourceTexture(folder.texture(QStringLiteral("Stone.png")));
    const QStringList before = store.logLines();
    NormalGeneratorSettings settings = store.settings();
    settings.strength = 9;
    store.setSettings(settings);
    runEventLoop();
    EXPECT_EQ(store.logLines(), before);
}

TEST_F(GeneratorStoreTest, BlocksAnExportWithoutSourceAndAsksForNoFolder) {
    store.exportSet();
    EXPECT_EQ(newest(), stamped(QStringLiteral("Export blocked: source texture is required.")));
    EXPECT_TRUE(chooser.folderQuestions.empty());
}

TEST_F(GeneratorStoreTest, StopsSilentlyWhenNoFolderIsChosen) {
    store.importSourceTexture(folder.texture(QStringLiteral("Stone.png")));
    const QStringList before = store.logLines();
    store.exportSet();
    ASSERT_EQ(chooser.folderQuestions.size(), 1U);
    EXPECT_EQ(chooser.folderQuestions[0],
              (FolderQuestion{QStringLiteral("Choose Export Folder"), QStringLiteral("Export Here")}));
    EXPECT_EQ(store.logLines(), before);
}

TEST_F(GeneratorStoreTest, LogsTheFolderAndEveryWrittenFile) {
    chooser.folder = folder.url();
    store.importSourceTexture(folder.texture(QStringLiteral("Stone.png")));
    exportSmall();
    const QStringList suffixes{QStringLiteral("_maps_notes.txt"), QStringLiteral(".gltf"),
                               QStringLiteral("_orm.png"),        QStringLiteral("_ao.png"),
                               QStringLiteral("_metallic.png"),   QStringLiteral("_gloss.png"),
                               QStringLiteral("_roughness.png"),  QStringLiteral("_height.png"),
                               QStringLiteral("_normal.png"),     QStringLiteral("_basecolor.png")};
    QStringList expected;
    for (const QString& suffix : suffixes) {
        expected << stamped(QStringLiteral("Wrote Stone") + suffix);
    }
    const QString into = folder.path(QStringLiteral("Stone"));
    expected << stamped(QStringLiteral("Export complete: ") + into);
    EXPECT_EQ(store.logLines().first(qMin(expected.size(), store.logLines().size())), expected);
    ASSERT_NE(store.lastExportURL(), std::nullopt);
    EXPECT_EQ(QFileInfo(store.lastExportURL()->toLocalFile()), QFileInfo(into));
}

TEST_F(GeneratorStoreTest, KeepsTheLastExportWhenOneFails) {
    store.importSourceTexture(folder.texture(QStringLiteral("Stone.png")));
    chooser.folder = folder.url();
    exportSmall();
    const auto before = store.lastExportURL();
    chooser.folder = folder.blocked();
    exportSmall();
    EXPECT_TRUE(newest().startsWith(stamped(QStringLiteral("Export failed: ")))) << newest().toStdString();
    EXPECT_EQ(store.lastExportURL(), before);
}

TEST_F(GeneratorStoreTest, NeverHoldsMoreThanEightyLines) {
    for (int line = 0; line < 100; ++line) {
        store.removeSourceTexture();
    }
    EXPECT_EQ(store.logLines().size(), 80);
}

TEST_F(GeneratorStoreTest, AnnouncesEveryChangeBeforeItIsMade) {
    QList<bool> loaded;
    QStringList names;
    QObject::connect(&store, &NormalGeneratorStore::willChange, [&] {
        loaded << store.canExport();
        names << store.settings().materialName;
    });
    store.importSourceTexture(folder.texture(QStringLiteral("Stone.png")));
    EXPECT_EQ(loaded, QList<bool>({false, true, true, true, true}));
    const QString untouched = NormalGeneratorSettings::defaultMaterialName();
    EXPECT_EQ(names.first(2), QStringList({untouched, untouched}));
    EXPECT_EQ(names[2], QStringLiteral("Stone"));
}

}  // namespace

#include "stores/normal_generator_store.h"

#include "model/generated_set.h"
#include "model/normal_generator_settings.h"
#include "model/output_resolution.h"
#include "model/previews.h"
#include "set_files.h"
#include "store_fixture.h"

#include <QFile>
#include <QFileInfo>

using namespace Qt::StringLiterals;

using namespace quarlin;
using namespace quarlin::fixtures;

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
    EXPECT_EQ(store.logLines(), QStringList{u"Load one source texture to generate Normal, Roughness, "
                                            "Gloss, Metallic, AO and ORM maps."_s});
    EXPECT_FALSE(store.canExport());
}

TEST_F(GeneratorStoreTest, AsksForTheSource) {
    const QStringList before = store.logLines();
    store.chooseSourceTexture();
    const std::vector types{ImageFileType::png, ImageFileType::jpeg, ImageFileType::tiff,
                            ImageFileType::bmp, ImageFileType::gif,  ImageFileType::heic};
    ASSERT_EQ(chooser.fileQuestions.size(), 1U);
    EXPECT_EQ(chooser.fileQuestions[0], (FileQuestion{u"Choose Source Texture"_s, u"Use Texture"_s, types}));
    EXPECT_EQ(store.logLines(), before);
}

TEST_F(GeneratorStoreTest, ImportsTheChosenFile) {
    chooser.file = folder.texture(u"Stone.png"_s, 8, 4);
    store.chooseSourceTexture();
    ASSERT_TRUE(store.canExport());
    EXPECT_EQ(store.source()->url, *chooser.file);
    EXPECT_EQ(store.logLines().first(2), QStringList({stamped(u"Generated map preview updated."_s),
                                                      stamped(u"Source loaded: Stone.png, 8x4"_s)}));
    EXPECT_EQ(store.previews().size(), allCases<NormalPreviewKind>().size());
}

TEST_F(GeneratorStoreTest, TakesTheNameOfTheFirstSource) {
    store.importSourceTexture(folder.texture(u"Stone.png"_s));
    EXPECT_EQ(store.settings().materialName, u"Stone"_s);
    store.importSourceTexture(folder.texture(u"Wood.png"_s));
    EXPECT_EQ(store.settings().materialName, u"Stone"_s);
    EXPECT_EQ(store.source()->fileName, u"Wood.png"_s);
}

TEST_F(GeneratorStoreTest, KeepsATypedName) {
    NormalGeneratorSettings settings;
    settings.materialName = u"Mine"_s;
    store.setSettings(settings);
    store.importSourceTexture(folder.texture(u"Stone.png"_s));
    EXPECT_EQ(store.settings(), settings);
}

TEST_F(GeneratorStoreTest, KeepsEverythingWhenAFileCannotBeLoaded) {
    store.importSourceTexture(folder.texture(u"Stone.png"_s));
    const QStringList before = store.logLines();
    const NormalPreviews previews = store.previews();
    store.importSourceTexture(folder.noTexture(u"notes.txt"_s));
    EXPECT_EQ(newest(), stamped(u"Load failed: Could not read image: notes.txt"_s));
    EXPECT_EQ(store.logLines().mid(1), before);
    EXPECT_EQ(store.source()->fileName, u"Stone.png"_s);
    EXPECT_EQ(store.previews(), previews);
}

TEST_F(GeneratorStoreTest, ImportsTheFirstDroppedFileAfterTheDrop) {
    const auto data = dragged({folder.texture(u"a.png"_s), folder.texture(u"b.png"_s)});
    EXPECT_TRUE(store.acceptDrop(*data));
    EXPECT_FALSE(store.canExport());
    runEventLoop();
    ASSERT_TRUE(store.canExport());
    EXPECT_EQ(store.source()->fileName, u"a.png"_s);
}

TEST_F(GeneratorStoreTest, RefusesADropWithoutAFile) {
    QMimeData text;
    text.setText(u"plain"_s);
    EXPECT_FALSE(store.acceptDrop(text));
}

TEST_F(GeneratorStoreTest, AcceptsADropThatTurnsOutUnreadable) {
    EXPECT_TRUE(store.acceptDrop(*dragged({folder.noTexture(u"a.png"_s)})));
    runEventLoop();
    EXPECT_TRUE(newest().startsWith(stamped(u"Load failed: "_s)));
}

TEST_F(GeneratorStoreTest, ForgetsADropWhenItIsGone) {
    int announced = 0;
    QObject::connect(&store, &NormalGeneratorStore::willChange, [&] { ++announced; });
    EXPECT_TRUE(store.acceptDrop(*dragged({folder.texture(u"a.png"_s)})));
    owned.reset();
    runEventLoop();
    EXPECT_EQ(announced, 0);
}

TEST_F(GeneratorStoreTest, RemovesTheSourceAndKeepsSettingsAndExportFolder) {
    chooser.folder = folder.url();
    store.importSourceTexture(folder.texture(u"Stone.png"_s));
    exportSmall();
    const auto exported = store.lastExportURL();
    const NormalGeneratorSettings settings = store.settings();
    store.removeSourceTexture();
    EXPECT_FALSE(store.canExport());
    EXPECT_TRUE(store.previews().empty());
    EXPECT_EQ(newest(), stamped(u"Source removed."_s));
    EXPECT_EQ(store.settings(), settings);
    EXPECT_NE(exported, std::nullopt);
    EXPECT_EQ(store.lastExportURL(), exported);
}

TEST_F(GeneratorStoreTest, ResetsToAFreshStateWithOneUnstampedLine) {
    chooser.folder = folder.url();
    store.importSourceTexture(folder.texture(u"Stone.png"_s));
    exportSmall();
    store.reset();
    EXPECT_FALSE(store.canExport());
    EXPECT_TRUE(store.previews().empty());
    EXPECT_EQ(store.settings(), NormalGeneratorSettings());
    EXPECT_EQ(store.lastExportURL(), std::nullopt);
    EXPECT_EQ(store.logLines(), QStringList{u"Inputs cleared."_s});
}

TEST_F(GeneratorStoreTest, LogsNoPreviewOfNothing) {
    const QStringList before = store.logLines();
    store.buildPreview();
    EXPECT_EQ(store.logLines(), before);
}

TEST_F(GeneratorStoreTest, KeepsThePreviewsWhenTheyCannotBeBuilt) {
    const QUrl file = folder.texture(u"Stone.png"_s);
    store.importSourceTexture(file);
    const NormalPreviews before = store.previews();
    ASSERT_TRUE(QFile::remove(file.toLocalFile()));
    store.buildPreview();
    EXPECT_EQ(newest(), stamped(u"Preview failed: Could not read image: Stone.png"_s));
    EXPECT_EQ(store.previews(), before);
}

TEST_F(GeneratorStoreTest, RebuildsNoPreviewForAChangedSetting) {
    store.importSourceTexture(folder.texture(u"Stone.png"_s));
    const QStringList before = store.logLines();
    NormalGeneratorSettings settings = store.settings();
    settings.strength = 9;
    store.setSettings(settings);
    runEventLoop();
    EXPECT_EQ(store.logLines(), before);
}

TEST_F(GeneratorStoreTest, BlocksAnExportWithoutSourceAndAsksForNoFolder) {
    store.exportSet();
    EXPECT_EQ(newest(), stamped(u"Export blocked: source texture is required."_s));
    EXPECT_TRUE(chooser.folderQuestions.empty());
}

TEST_F(GeneratorStoreTest, StopsSilentlyWhenNoFolderIsChosen) {
    store.importSourceTexture(folder.texture(u"Stone.png"_s));
    const QStringList before = store.logLines();
    store.exportSet();
    ASSERT_EQ(chooser.folderQuestions.size(), 1U);
    EXPECT_EQ(chooser.folderQuestions[0], (FolderQuestion{u"Choose Export Folder"_s, u"Export Here"_s}));
    EXPECT_EQ(store.logLines(), before);
}

TEST_F(GeneratorStoreTest, LogsTheFolderAndEveryWrittenFile) {
    chooser.folder = folder.url();
    store.importSourceTexture(folder.texture(u"Stone.png"_s));
    exportSmall();
    QStringList expected;
    for (const QString& name : namesOf(generatedFiles(), u"Stone"_s)) {
        expected.prepend(stamped(u"Wrote "_s + name));
    }
    const QString into = folder.path(u"Stone"_s);
    expected << stamped(u"Export complete: "_s + into);
    EXPECT_EQ(store.logLines().first(qMin(expected.size(), store.logLines().size())), expected);
    ASSERT_NE(store.lastExportURL(), std::nullopt);
    EXPECT_EQ(QFileInfo(store.lastExportURL()->toLocalFile()), QFileInfo(into));
}

TEST_F(GeneratorStoreTest, KeepsTheLastExportWhenOneFails) {
    store.importSourceTexture(folder.texture(u"Stone.png"_s));
    chooser.folder = folder.url();
    exportSmall();
    const auto before = store.lastExportURL();
    chooser.folder = folder.blocked();
    exportSmall();
    EXPECT_TRUE(newest().startsWith(stamped(u"Export failed: "_s))) << newest().toStdString();
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
    store.importSourceTexture(folder.texture(u"Stone.png"_s));
    EXPECT_EQ(loaded, QList<bool>({false, true, true, true, true}));
    const QString untouched = NormalGeneratorSettings::defaultMaterialName();
    EXPECT_EQ(names.first(2), QStringList({untouched, untouched}));
    EXPECT_EQ(names[2], u"Stone"_s);
}

}  // namespace

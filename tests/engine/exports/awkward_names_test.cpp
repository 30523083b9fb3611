// Files and materials with names that programs often handle wrongly.

#include "awkward_names.h"

#include "engine/texture_processor.h"
#include "engine_errors.h"
#include "export_kind.h"
#include "model/conversion_settings.h"
#include "model/export_result.h"
#include "model/normal_generator_settings.h"
#include "model/texture_asset.h"
#include "rendering.h"

using namespace Qt::StringLiterals;

using namespace quarlin;
using namespace quarlin::fixtures;

namespace {

class AwkwardFileNames : public testing::Test {
protected:
    const TextureProcessor processor{};
    const TemporaryFolder folder;
};

TEST_F(AwkwardFileNames, AreOpenedAndShownAsTheyAre) {
    std::uint64_t seed = 0;
    for (const QString& name : awkwardFileNames()) {
        writePng(folder.url(name), noisePicture(4, 4, ++seed));
    }
    EXPECT_EQ(folder.names().size(), awkwardFileNames().size());
    seed = 0;
    for (const QString& name : awkwardFileNames()) {
        const TextureAsset asset = processor.loadAsset(folder.url(name));
        EXPECT_EQ(asset.fileName, name);
        EXPECT_TRUE(rendersAs(noisePicture(4, 4, ++seed), asset.url)) << name.toStdString();
    }
}

TEST_F(AwkwardFileNames, AreToldAsTheyAreWhenTheFileIsMissing) {
    for (const QString& name : awkwardFileNames()) {
        const auto error = errorOf([&] { return processor.loadAsset(folder.url(name)); });
        ASSERT_TRUE(error) << name.toStdString();
        EXPECT_EQ(error->errorDescription(), u"Could not read image: "_s + name);
    }
}

TEST_F(AwkwardFileNames, ThatDifferOnlyInCaseAreTwoFiles) {
    writePng(folder.url(u"Brick.png"_s), noisePicture(4, 4, 1));
    writePng(folder.url(u"brick.PNG"_s), noisePicture(4, 4, 2));
    EXPECT_TRUE(rendersAs(noisePicture(4, 4, 1), folder.url(u"Brick.png"_s)));
    EXPECT_TRUE(rendersAs(noisePicture(4, 4, 2), folder.url(u"brick.PNG"_s)));
}

class AwkwardMaterialNames : public EitherExport {
protected:
    QString folderOf(const AwkwardMaterialName& material) const {
        const QString standIn = GetParam().isMaterial ? ConversionSettings::defaultMaterialName()
                                                      : NormalGeneratorSettings::defaultMaterialName();
        return material.folder.isEmpty() ? standIn : material.folder;
    }
};

TEST_P(AwkwardMaterialNames, NeverLeadOutOfTheChosenFolder) {
    for (const AwkwardMaterialName& material : awkwardMaterialNames()) {
        name = material.typed;
        const ExportResult result = exported();
        // The files are named after the folder.
        name = folderOf(material);
        EXPECT_EQ(result.folderURL.toLocalFile(), setPath()) << material.typed.toStdString();
        EXPECT_EQ(result.files, setNames());
        QStringList expected = setNames();
        std::sort(expected.begin(), expected.end());
        EXPECT_EQ(folder.names(u"out"_s), QStringList{name});
        EXPECT_EQ(folder.names(u"out/"_s + name), expected);
        EXPECT_EQ(folder.names(), (QStringList{u"in"_s, u"out"_s}));
        EXPECT_EQ(folder.names(u"in"_s).size(), 5);
        QDir(setPath()).removeRecursively();
    }
}

TEST_P(AwkwardMaterialNames, ThatDifferOnlyInCaseOrInTheirFormAreTwoSets) {
    for (const QString& each : {u"Brick"_s, u"brick"_s, u"e\u0301"_s, u"\u00e9"_s}) {
        name = each;
        exported();
    }
    EXPECT_EQ(folder.names(u"out"_s).size(), 4);
}

TEST_P(AwkwardMaterialNames, FollowALinkInThePlaceOfAFile) {
    // The user may have made the link in order to keep the file elsewhere.
    const QUrl elsewhere = folder.url(u"elsewhere.png"_s);
    writeFile(elsewhere, "older");
    folder.makeFolder(u"out/Brick"_s);
    ASSERT_TRUE(QFile::link(elsewhere.toLocalFile(), setPath() + u'/' + setNames().constFirst()));
    exported();
    EXPECT_EQ(readPng(elsewhere).width, 24);
    EXPECT_TRUE(QFileInfo(setPath() + u'/' + setNames().constFirst()).isSymLink());
}

INSTANTIATE_TEST_SUITE_P(Exports, AwkwardMaterialNames, allExportKinds(), testing::PrintToStringParamName());

}  // namespace

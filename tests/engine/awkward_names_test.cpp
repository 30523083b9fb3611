// Files and materials with names that programs get wrong.

#include "awkward_names.h"

#include "engine_errors.h"
#include "export_kind.h"
#include "rendering.h"

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
        EXPECT_EQ(error->errorDescription(), QStringLiteral("Could not read image: ") + name);
    }
}

TEST_F(AwkwardFileNames, ThatDifferOnlyInCaseAreTwoFiles) {
    writePng(folder.url(QStringLiteral("Brick.png")), noisePicture(4, 4, 1));
    writePng(folder.url(QStringLiteral("brick.PNG")), noisePicture(4, 4, 2));
    EXPECT_TRUE(rendersAs(noisePicture(4, 4, 1), folder.url(QStringLiteral("Brick.png"))));
    EXPECT_TRUE(rendersAs(noisePicture(4, 4, 2), folder.url(QStringLiteral("brick.PNG"))));
}

class AwkwardMaterialNames : public EitherExport {
protected:
    QString folderOf(const AwkwardMaterialName& material) const {
        const QString standIn = GetParam() == ExportKind::material
                                    ? ConversionSettings::defaultMaterialName()
                                    : NormalGeneratorSettings::defaultMaterialName();
        return material.folder.isEmpty() ? standIn : material.folder;
    }
};

TEST_P(AwkwardMaterialNames, NeverLeadOutOfTheChosenFolder) {
    for (const AwkwardMaterialName& material : awkwardMaterialNames()) {
        name = material.typed;
        const ExportResult result = exported();
        // What the files are named after is the folder.
        name = folderOf(material);
        EXPECT_EQ(result.folderURL.toLocalFile(), setPath()) << material.typed.toStdString();
        EXPECT_EQ(result.files, setNames());
        QStringList expected = setNames();
        std::sort(expected.begin(), expected.end());
        EXPECT_EQ(folder.names(QStringLiteral("out")), QStringList{name});
        EXPECT_EQ(folder.names(QStringLiteral("out/") + name), expected);
        EXPECT_EQ(folder.names(), (QStringList{QStringLiteral("in"), QStringLiteral("out")}));
        EXPECT_EQ(folder.names(QStringLiteral("in")).size(), 5);
        QDir(setPath()).removeRecursively();
    }
}

TEST_P(AwkwardMaterialNames, ThatDifferOnlyInCaseOrInTheirFormAreTwoSets) {
    for (const QString& each : {QStringLiteral("Brick"), QStringLiteral("brick"), QStringLiteral("e\u0301"),
                                QStringLiteral("\u00e9")}) {
        name = each;
        exported();
    }
    EXPECT_EQ(folder.names(QStringLiteral("out")).size(), 4);
}

TEST_P(AwkwardMaterialNames, FollowALinkInThePlaceOfAFile) {
    // Somebody has put the link there in order to have the file elsewhere.
    const QUrl elsewhere = folder.url(QStringLiteral("elsewhere.png"));
    writeFile(elsewhere, "older");
    folder.makeFolder(QStringLiteral("out/Brick"));
    ASSERT_TRUE(QFile::link(elsewhere.toLocalFile(), setPath() + u'/' + setNames().constFirst()));
    exported();
    EXPECT_EQ(readPng(elsewhere).width, 24);
    EXPECT_TRUE(QFileInfo(setPath() + u'/' + setNames().constFirst()).isSymLink());
}

INSTANTIATE_TEST_SUITE_P(Exports, AwkwardMaterialNames,
                         testing::Values(ExportKind::material, ExportKind::maps),
                         testing::PrintToStringParamName());

}  // namespace

#include "cli_test.h"
#include "texture_processor.h"

#include <QDir>

#include <gmock/gmock.h>

#include <functional>

using namespace quarlin;
using namespace quarlin::tests;

namespace {

/// A material with all its inputs, small enough to be exported often.
class MaterialCommand : public CliTest {
protected:
    const QString baseColor = writeImage(QStringLiteral("Brick.Wall.png"), patternedImage(24, 16, 1));
    const QString normal = writeImage(QStringLiteral("n.png"), patternedImage(24, 16, 2));
    const QString occlusion = writeImage(QStringLiteral("o.png"), patternedImage(12, 8, 3));
    const QString roughness = writeImage(QStringLiteral("r.png"), patternedImage(24, 16, 4));
    const QString metallic = writeImage(QStringLiteral("m.png"), patternedImage(24, 16, 5));

    QStringList leastWords() const {
        return {QStringLiteral("material"),
                QStringLiteral("--base-color"),
                baseColor,
                QStringLiteral("--output"),
                output(),
                QStringLiteral("--size"),
                QStringLiteral("base")};
    }

    static ConversionSettings leastSettings() {
        ConversionSettings settings;
        settings.materialName = QStringLiteral("Brick.Wall");
        settings.outputResolution = OutputResolution::matchBase;
        return settings;
    }

    /// What the engine itself exports.
    FolderContents expected(const ConversionSettings& settings,
                            const std::map<TextureSlotKind, QString>& files) const {
        const TextureProcessor processor{};
        TextureMap textures;
        for (const auto& [slot, file] : files) {
            textures.emplace(slot, processor.loadAsset(QUrl::fromLocalFile(file)));
        }
        const QUrl parent = QUrl::fromLocalFile(path(QStringLiteral("expected")));
        return takenFrom(processor.exportMaterialSet(textures, settings, parent).folderURL.toLocalFile());
    }
};

TEST_F(MaterialCommand, ReportsFolderAndFilesInWritingOrder) {
    const Outcome outcome = runCli(leastWords() + QStringList{QStringLiteral("--normal"), normal});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.errors, "");
    EXPECT_EQ(outcome.output, "Export complete: " + output().toStdString() +
                                  "/Brick_Wall\n"
                                  "Wrote Brick_Wall_BaseColor.png\n"
                                  "Wrote Brick_Wall_ORM.png\n"
                                  "Wrote Brick_Wall_Normal.png\n"
                                  "Wrote Brick_Wall.gltf\n"
                                  "Wrote Brick_Wall_SL_PBR_notes.txt\n");
}

TEST_F(MaterialCommand, ReportsAsJson) {
    const Outcome outcome =
        runCli(leastWords() + QStringList{QStringLiteral("--json"), QStringLiteral("--name"),
                                          QStringLiteral("Größe \"1\"")});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.errors, "");
    EXPECT_EQ(outcome.output,
              "{\"folder\": \"" + output().toStdString() +
                  "/Größe__1_\", \"files\": [\"Größe__1__BaseColor.png\", \"Größe__1__ORM.png\", "
                  "\"Größe__1_.gltf\", \"Größe__1__SL_PBR_notes.txt\"]}\n");
}

TEST_F(MaterialCommand, WritesTheFilesItReportsAndNoOthers) {
    ASSERT_EQ(runCli(leastWords()).status, 0);
    EXPECT_EQ(
        contentsOf(output() + QStringLiteral("/Brick_Wall")).keys(),
        (QStringList{QStringLiteral("Brick_Wall.gltf"), QStringLiteral("Brick_Wall_BaseColor.png"),
                     QStringLiteral("Brick_Wall_ORM.png"), QStringLiteral("Brick_Wall_SL_PBR_notes.txt")}));
    EXPECT_EQ(QDir(output()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
              QStringList{QStringLiteral("Brick_Wall")});
}

TEST_F(MaterialCommand, MakesMapsOf2048PixelsUnlessTold) {
    ASSERT_EQ(runCli({QStringLiteral("material"), QStringLiteral("--base-color"), baseColor,
                      QStringLiteral("--output"), output()})
                  .status,
              0);
    EXPECT_EQ(QImage(output() + QStringLiteral("/Brick_Wall/Brick_Wall_ORM.png")).size(), QSize(2048, 2048));
}

TEST_F(MaterialCommand, TakesPathsRelativeToTheWorkingDirectory) {
    const Outcome outcome =
        runCli({QStringLiteral("material"), QStringLiteral("--base-color"),
                QStringLiteral("./Brick.Wall.png"), QStringLiteral("--size"), QStringLiteral("base"),
                QStringLiteral("--output"), QStringLiteral("deep/er/../in")},
               path({}));
    EXPECT_EQ(outcome.status, 0);
    EXPECT_THAT(outcome.output,
                testing::StartsWith(
                    "Export complete: " + path(QStringLiteral("deep/in/Brick_Wall")).toStdString() + "\n"));
}

TEST_F(MaterialCommand, WritesOverAnEarlierSet) {
    ASSERT_EQ(runCli(leastWords()).status, 0);
    const FolderContents first = contentsOf(output() + QStringLiteral("/Brick_Wall"));
    ASSERT_EQ(
        runCli(leastWords() + QStringList{QStringLiteral("--default-metallic"), QStringLiteral("1")}).status,
        0);
    const FolderContents second = contentsOf(output() + QStringLiteral("/Brick_Wall"));
    EXPECT_EQ(first.keys(), second.keys());
    EXPECT_TRUE(first != second);
}

TEST_F(MaterialCommand, ExportsOntoItsOwnInputs) {
    const QString set = output() + QStringLiteral("/Brick_Wall/");
    ASSERT_EQ(runCli(leastWords()).status, 0);
    const FolderContents first = contentsOf(set);
    const Outcome outcome =
        runCli({QStringLiteral("material"), QStringLiteral("--base-color"),
                set + QStringLiteral("Brick_Wall_BaseColor.png"), QStringLiteral("--name"),
                QStringLiteral("Brick_Wall"), QStringLiteral("--size"), QStringLiteral("base"),
                QStringLiteral("--output"), output()});
    EXPECT_EQ(outcome.status, 0) << outcome.errors;
    EXPECT_EQ(contentsOf(set)[QStringLiteral("Brick_Wall_BaseColor.png")],
              first[QStringLiteral("Brick_Wall_BaseColor.png")]);
}

/// An option, and what it is to do to the least settings or inputs.
struct MaterialOption {
    const char* name;
    QStringList words;
    std::function<void(ConversionSettings&)> change;
};

class MaterialSetting : public MaterialCommand, public testing::WithParamInterface<MaterialOption> {};

TEST_P(MaterialSetting, GivesTheBytesOfTheEngine) {
    // With one input of each kind that a setting acts on; a default acts where an input is missing.
    std::map<TextureSlotKind, QString> files{{TextureSlotKind::baseColor, baseColor},
                                             {TextureSlotKind::normal, normal}};
    QStringList words = leastWords() + QStringList{QStringLiteral("--normal"), normal};
    if (GetParam().words.contains(QStringLiteral("--gloss"))) {
        files[TextureSlotKind::roughness] = roughness;
        words += {QStringLiteral("--roughness"), roughness};
    }
    ConversionSettings settings = leastSettings();
    const FolderContents unchanged = expected(settings, files);
    GetParam().change(settings);
    const FolderContents wanted = expected(settings, files);
    ASSERT_TRUE(wanted != unchanged);

    // A size is given once, so the least words make way for another one.
    if (GetParam().words.contains(QStringLiteral("--size"))) {
        words.remove(words.indexOf(QStringLiteral("--size")), 2);
    }
    const Outcome outcome = runCli(words + GetParam().words);
    EXPECT_EQ(outcome.status, 0) << outcome.errors;
    expectSame(contentsOf(output() + u'/' + settings.safeMaterialName()), wanted);
}

QStringList words(const char* text) { return QString::fromUtf8(text).split(u' '); }

INSTANTIATE_TEST_SUITE_P(
    Options, MaterialSetting,
    testing::Values(
        MaterialOption{"Name",
                       {QStringLiteral("--name"), QStringLiteral("  Old brick / 2 ")},
                       [](auto& s) { s.materialName = QStringLiteral("  Old brick / 2 "); }},
        MaterialOption{"EmptyName", {QStringLiteral("--name"), {}}, [](auto& s) { s.materialName.clear(); }},
        MaterialOption{"EmojiName", words("--name a😀b"),
                       [](auto& s) { s.materialName = QStringLiteral("a😀b"); }},
        MaterialOption{"Size", words("--size 512"),
                       [](auto& s) { s.outputResolution = OutputResolution::px512; }},
        MaterialOption{"Gloss", words("--gloss"), [](auto& s) { s.roughnessInputIsGloss = true; }},
        MaterialOption{"FlipNormalGreen", words("--flip-normal-green"),
                       [](auto& s) { s.flipNormalGreen = true; }},
        MaterialOption{"DefaultOcclusion", words("--default-occlusion 0.5"),
                       [](auto& s) { s.defaultOcclusion = 0.5; }},
        MaterialOption{"DefaultRoughness", words("--default-roughness 1"),
                       [](auto& s) { s.defaultRoughness = 1; }},
        MaterialOption{"DefaultMetallic", words("--default-metallic 1e-1"),
                       [](auto& s) { s.defaultMetallic = 0.1; }},
        MaterialOption{"NoGltf", words("--no-gltf"), [](auto& s) { s.exportGLTF = false; }},
        MaterialOption{"NoNotes", words("--no-notes"), [](auto& s) { s.exportNotes = false; }},
        MaterialOption{"Equals", words("--default-roughness=0.25"),
                       [](auto& s) { s.defaultRoughness = 0.25; }}),
    [](const auto& tested) { return std::string(tested.param.name); });

TEST_F(MaterialCommand, PutsEveryInputIntoItsChannel) {
    const FolderContents wanted = expected(leastSettings(), {{TextureSlotKind::baseColor, baseColor},
                                                             {TextureSlotKind::normal, normal},
                                                             {TextureSlotKind::occlusion, occlusion},
                                                             {TextureSlotKind::roughness, roughness},
                                                             {TextureSlotKind::metallic, metallic}});
    const Outcome outcome =
        runCli(leastWords() +
               QStringList{QStringLiteral("--metallic"), metallic, QStringLiteral("--roughness"), roughness,
                           QStringLiteral("--occlusion"), occlusion, QStringLiteral("--normal"), normal});
    EXPECT_EQ(outcome.status, 0) << outcome.errors;
    expectSame(contentsOf(output() + QStringLiteral("/Brick_Wall")), wanted);
}

TEST_F(MaterialCommand, PacksTheDefaultsWhereInputsAreMissing) {
    ASSERT_EQ(runCli(leastWords()).status, 0);
    const QImage orm(output() + QStringLiteral("/Brick_Wall/Brick_Wall_ORM.png"));
    EXPECT_EQ(orm.size(), QSize(24, 16));
    EXPECT_EQ(orm.pixel(0, 0), qRgb(255, 166, 0));
    EXPECT_EQ(orm.pixel(23, 15), qRgb(255, 166, 0));
}

TEST_F(MaterialCommand, TakesANegativeZeroForZero) {
    ASSERT_EQ(runCli(leastWords() + words("--default-metallic -0")).status, 0);
    EXPECT_TRUE(
        contentsOf(output() + QStringLiteral("/Brick_Wall"))[QStringLiteral("Brick_Wall_SL_PBR_notes.txt")]
            .contains("\nDefault metallic: 0%\n"));
}

}  // namespace

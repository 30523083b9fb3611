#include "batch_test.h"
#include "engine/texture_processor.h"
#include "model/conversion_settings.h"
#include "model/export_result.h"
#include "model/output_resolution.h"
#include "model/texture_asset.h"
#include "model/texture_slot_kind.h"

#include <QColorSpace>
#include <QDir>
#include <QJsonArray>

#include <gmock/gmock.h>

#include <functional>

using namespace Qt::StringLiterals;

using namespace quarlin;
using namespace quarlin::tests;

namespace {

/// A material with all its inputs, small enough to be exported many times.
class MaterialCommand : public CliTest {
protected:
    const QString baseColor = writeImage(u"Brick.Wall.png"_s, patternedImage(24, 16, 1));
    const QString normal = writeImage(u"n.png"_s, patternedImage(24, 16, 2));
    const QString occlusion = writeImage(u"o.png"_s, patternedImage(12, 8, 3));
    const QString roughness = writeImage(u"r.png"_s, patternedImage(24, 16, 4));
    const QString metallic = writeImage(u"m.png"_s, patternedImage(24, 16, 5));

    QStringList leastArguments() const {
        return {u"material"_s, u"--base-color"_s, baseColor, u"--output"_s, output(), u"--size"_s, u"base"_s};
    }

    static ConversionSettings leastSettings() {
        ConversionSettings settings;
        settings.materialName = u"Brick.Wall"_s;
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
        const QUrl parent = QUrl::fromLocalFile(path(u"expected"_s));
        return takenFrom(processor.exportMaterialSet(textures, settings, parent).folderURL.toLocalFile());
    }
};

TEST_F(MaterialCommand, ReportsFolderAndFilesInWritingOrder) {
    const Outcome outcome = runCli(leastArguments() + QStringList{u"--normal"_s, normal});
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
        runCli(leastArguments() + QStringList{u"--json"_s, u"--name"_s, u"Größe \"1\""_s});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.errors, "");
    EXPECT_EQ(firstLine(outcome.output),
              "{\"type\": \"set\", \"version\": 1, \"status\": \"exported\", \"name\": \"Größe__1_\", "
              "\"folder\": \"" +
                  output().toStdString() +
                  "/Größe__1_\", \"files\": [\"Größe__1__BaseColor.png\", \"Größe__1__ORM.png\", "
                  "\"Größe__1_.gltf\", \"Größe__1__SL_PBR_notes.txt\"], \"replaced\": [], \"inputs\": "
                  "{\"baseColor\": \"" +
                  leastArguments()[2].toStdString() + "\"}, \"channels\": {}, \"notes\": [], \"error\": {}}");
}

/// A roughness map of 97, with a profile of linear light.
QImage linearGray() {
    QImage image(24, 16, QImage::Format_RGB32);
    image.fill(qRgb(97, 97, 97));
    image.setColorSpace(QColorSpace::SRgbLinear);
    return image;
}

TEST_F(MaterialCommand, ReportsDataMapsThatAProfileHasChanged) {
    const QString map = writeImage(u"rough.png"_s, linearGray());
    const QStringList arguments = leastArguments() + QStringList{u"--roughness"_s, map};
    const Outcome outcome = runCli(arguments);
    EXPECT_THAT(
        outcome.output,
        testing::HasSubstr("Note: the values of rough.png (Roughness / Gloss) were converted from \""));
    const QString orm = output() + u"/Brick_Wall/Brick_Wall_ORM.png"_s;
    // 97/255 of linear light is 165.8 in sRGB; the luminance of such a gray may be one less.
    EXPECT_NEAR(qGreen(QImage(orm).pixel(3, 3)), 166, 1);

    const std::vector<QJsonObject> lines = jsonLines(runCli(arguments + QStringList{u"--json"_s}).output);
    ASSERT_EQ(lines.size(), 2U);
    const QJsonArray notes = lines[0][u"notes"_s].toArray();
    ASSERT_EQ(notes.size(), 1);
    EXPECT_EQ(notes[0][u"code"_s].toString(), u"converted"_s);
    EXPECT_EQ(notes[0][u"input"_s].toString(), u"roughness"_s);
    EXPECT_NE(notes[0][u"profile"_s].toString(), QString());
}

TEST_F(MaterialCommand, KeepsTheSamplesOfRawData) {
    const QString map = writeImage(u"rough.png"_s, linearGray());
    const Outcome outcome = runCli(leastArguments() + QStringList{u"--roughness"_s, map, u"--raw-data"_s});
    EXPECT_THAT(outcome.output, testing::Not(testing::HasSubstr("Note:")));
    EXPECT_EQ(qGreen(QImage(output() + u"/Brick_Wall/Brick_Wall_ORM.png"_s).pixel(3, 3)), 97);
    // The base color is a color all the same.
    ASSERT_EQ(runCli({u"material"_s, u"--base-color"_s, map, u"--raw-data"_s, u"--output"_s, output(),
                      u"--size"_s, u"base"_s})
                  .status,
              0);
    EXPECT_EQ(qGreen(QImage(output() + u"/rough/rough_BaseColor.png"_s).pixel(3, 3)), 166);
}

TEST_F(MaterialCommand, WritesTheFilesItReportsAndNoOthers) {
    ASSERT_EQ(runCli(leastArguments()).status, 0);
    EXPECT_EQ(contentsOf(output() + u"/Brick_Wall"_s).keys(),
              (QStringList{u"Brick_Wall.gltf"_s, u"Brick_Wall_BaseColor.png"_s, u"Brick_Wall_ORM.png"_s,
                           u"Brick_Wall_SL_PBR_notes.txt"_s}));
    EXPECT_EQ(QDir(output()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
              QStringList{u"Brick_Wall"_s});
}

TEST_F(MaterialCommand, MakesMapsOf2048PixelsByDefault) {
    ASSERT_EQ(runCli({u"material"_s, u"--base-color"_s, baseColor, u"--output"_s, output()}).status, 0);
    EXPECT_EQ(QImage(output() + u"/Brick_Wall/Brick_Wall_ORM.png"_s).size(), QSize(2048, 2048));
}

TEST_F(MaterialCommand, TakesPathsRelativeToTheWorkingDirectory) {
    const Outcome outcome = runCli({u"material"_s, u"--base-color"_s, u"./Brick.Wall.png"_s, u"--size"_s,
                                    u"base"_s, u"--output"_s, u"deep/er/../in"_s},
                                   path({}));
    EXPECT_EQ(outcome.status, 0);
    EXPECT_THAT(
        outcome.output,
        testing::StartsWith("Export complete: " + path(u"deep/in/Brick_Wall"_s).toStdString() + "\n"));
}

TEST_F(MaterialCommand, OverwritesAnEarlierSet) {
    ASSERT_EQ(runCli(leastArguments()).status, 0);
    const FolderContents first = contentsOf(output() + u"/Brick_Wall"_s);
    ASSERT_EQ(runCli(leastArguments() + QStringList{u"--default-metallic"_s, u"1"_s}).status, 0);
    const FolderContents second = contentsOf(output() + u"/Brick_Wall"_s);
    EXPECT_EQ(first.keys(), second.keys());
    EXPECT_TRUE(first != second);
}

TEST_F(MaterialCommand, ExportsOntoItsOwnInputs) {
    const QString set = output() + u"/Brick_Wall/"_s;
    ASSERT_EQ(runCli(leastArguments()).status, 0);
    const FolderContents first = contentsOf(set);
    const Outcome outcome =
        runCli({u"material"_s, u"--base-color"_s, set + u"Brick_Wall_BaseColor.png"_s, u"--name"_s,
                u"Brick_Wall"_s, u"--size"_s, u"base"_s, u"--output"_s, output()});
    EXPECT_EQ(outcome.status, 0) << outcome.errors;
    EXPECT_EQ(contentsOf(set)[u"Brick_Wall_BaseColor.png"_s], first[u"Brick_Wall_BaseColor.png"_s]);
}

/// An option, and the change that it must make to the minimal settings or inputs.
struct MaterialOption {
    const char* name;
    QStringList arguments;
    std::function<void(ConversionSettings&)> change;
};

class MaterialSetting : public MaterialCommand, public testing::WithParamInterface<MaterialOption> {};

TEST_P(MaterialSetting, WritesTheBytesOfTheEngine) {
    // The inputs that the tested setting acts on; a default acts on a missing input.
    std::map<TextureSlotKind, QString> files{{TextureSlotKind::baseColor, baseColor},
                                             {TextureSlotKind::normal, normal}};
    QStringList arguments = leastArguments() + QStringList{u"--normal"_s, normal};
    if (GetParam().arguments.contains(u"--gloss"_s)) {
        files[TextureSlotKind::roughness] = roughness;
        arguments += {u"--roughness"_s, roughness};
    }
    ConversionSettings settings = leastSettings();
    const FolderContents unchanged = expected(settings, files);
    GetParam().change(settings);
    const FolderContents wanted = expected(settings, files);
    ASSERT_TRUE(wanted != unchanged);

    // A size may only be given once, so the tested one replaces that of the minimal arguments.
    if (GetParam().arguments.contains(u"--size"_s)) {
        arguments.remove(arguments.indexOf(u"--size"_s), 2);
    }
    const Outcome outcome = runCli(arguments + GetParam().arguments);
    EXPECT_EQ(outcome.status, 0) << outcome.errors;
    expectSame(contentsOf(output() + u'/' + settings.safeMaterialName()), wanted);
}

QStringList arguments(const char* text) { return QString::fromUtf8(text).split(u' '); }

INSTANTIATE_TEST_SUITE_P(
    Options, MaterialSetting,
    testing::Values(
        MaterialOption{"Name",
                       {u"--name"_s, u"  Old brick / 2 "_s},
                       [](auto& s) { s.materialName = u"  Old brick / 2 "_s; }},
        MaterialOption{"EmptyName", {u"--name"_s, {}}, [](auto& s) { s.materialName.clear(); }},
        MaterialOption{"EmojiName", arguments("--name a😀b"), [](auto& s) { s.materialName = u"a😀b"_s; }},
        MaterialOption{"Size", arguments("--size 512"),
                       [](auto& s) { s.outputResolution = OutputResolution::px512; }},
        MaterialOption{"Gloss", arguments("--gloss"), [](auto& s) { s.roughnessInputIsGloss = true; }},
        MaterialOption{"FlipNormalGreen", arguments("--flip-normal-green"),
                       [](auto& s) { s.flipNormalGreen = true; }},
        MaterialOption{"DefaultOcclusion", arguments("--default-occlusion 0.5"),
                       [](auto& s) { s.defaultOcclusion = 0.5; }},
        MaterialOption{"DefaultRoughness", arguments("--default-roughness 1"),
                       [](auto& s) { s.defaultRoughness = 1; }},
        MaterialOption{"DefaultMetallic", arguments("--default-metallic 1e-1"),
                       [](auto& s) { s.defaultMetallic = 0.1; }},
        MaterialOption{"NoGltf", arguments("--no-gltf"), [](auto& s) { s.exportGLTF = false; }},
        MaterialOption{"NoNotes", arguments("--no-notes"), [](auto& s) { s.exportNotes = false; }},
        MaterialOption{"Equals", arguments("--default-roughness=0.25"),
                       [](auto& s) { s.defaultRoughness = 0.25; }}),
    [](const auto& tested) { return std::string(tested.param.name); });

TEST_F(MaterialCommand, PutsEveryInputIntoItsChannel) {
    const FolderContents wanted = expected(leastSettings(), {{TextureSlotKind::baseColor, baseColor},
                                                             {TextureSlotKind::normal, normal},
                                                             {TextureSlotKind::occlusion, occlusion},
                                                             {TextureSlotKind::roughness, roughness},
                                                             {TextureSlotKind::metallic, metallic}});
    const Outcome outcome =
        runCli(leastArguments() + QStringList{u"--metallic"_s, metallic, u"--roughness"_s, roughness,
                                              u"--occlusion"_s, occlusion, u"--normal"_s, normal});
    EXPECT_EQ(outcome.status, 0) << outcome.errors;
    expectSame(contentsOf(output() + u"/Brick_Wall"_s), wanted);
}

TEST_F(MaterialCommand, PacksTheDefaultsForMissingInputs) {
    ASSERT_EQ(runCli(leastArguments()).status, 0);
    const QImage orm(output() + u"/Brick_Wall/Brick_Wall_ORM.png"_s);
    EXPECT_EQ(orm.size(), QSize(24, 16));
    EXPECT_EQ(orm.pixel(0, 0), qRgb(255, 166, 0));
    EXPECT_EQ(orm.pixel(23, 15), qRgb(255, 166, 0));
}

TEST_F(MaterialCommand, TreatsANegativeZeroAsZero) {
    ASSERT_EQ(runCli(leastArguments() + arguments("--default-metallic -0")).status, 0);
    EXPECT_TRUE(contentsOf(output() + u"/Brick_Wall"_s)[u"Brick_Wall_SL_PBR_notes.txt"_s].contains(
        "\nDefault metallic: 0%\n"));
}

TEST_F(MaterialCommand, PacksAnExportedSetAgainToTheSameBytes) {
    const QString color = writeImage(u"color.png"_s, patternedImage(16, 16, 1));
    const QString rough = writeImage(u"rough.png"_s, patternedImage(16, 16, 2));
    const QString metal = writeImage(u"metal.png"_s, patternedImage(16, 16, 3));
    const auto runInto = [&](const QString& folder, const QStringList& inputs) {
        const Outcome outcome =
            runCli(QStringList{u"material"_s, u"--base-color"_s, color, u"--name"_s, u"Brick"_s, u"--size"_s,
                               u"base"_s, u"--output"_s, path(folder)} +
                   inputs);
        EXPECT_EQ(outcome.status, 0) << outcome.errors;
        return bytesOf(path(folder) + u"/Brick/Brick_ORM.png"_s);
    };
    const QByteArray first = runInto(u"first"_s, {u"--roughness"_s, rough, u"--metallic"_s, metal});
    const QString orm = path(u"first/Brick/Brick_ORM.png"_s);
    EXPECT_EQ(runInto(u"second"_s, {u"--occlusion"_s, orm + u":r"_s, u"--roughness"_s, orm + u":g"_s,
                                    u"--metallic"_s, orm + u":b"_s}),
              first);
    const QString notes = QString::fromUtf8(bytesOf(path(u"second/Brick/Brick_SL_PBR_notes.txt"_s)));
    EXPECT_TRUE(notes.contains(u"Roughness / Gloss: Brick_ORM.png, green (16x16)"_s)) << notes.toStdString();
}

TEST_F(MaterialCommand, TakesTheSamplesOfAChannelWithoutTheFilesColorProfile) {
    QImage packed = patternedImage(24, 16, 6);
    packed.setColorSpace(QColorSpace(QColorSpace::AdobeRgb));
    const QString file = writeImage(u"packed.png"_s, packed);
    ASSERT_EQ(runCli(leastArguments() + QStringList{u"--metallic"_s, file + u":g"_s}).status, 0);
    const QImage orm(output() + u"/Brick_Wall/Brick_Wall_ORM.png"_s);
    for (int x = 0; x < 24; ++x) {
        ASSERT_EQ(qBlue(orm.pixel(x, 5)), qGreen(packed.pixel(x, 5))) << x;
    }
}

TEST_F(MaterialCommand, TakesAFileWhoseNameEndsLikeAChannel) {
    const QString color = writeImage(u"color.png"_s, patternedImage(4, 4, 1));
    QFile::copy(writeGray(u"gray.png"_s, 100), path(u"gray:g"_s));
    const Outcome outcome = runCli({u"material"_s, u"--base-color"_s, color, u"--roughness"_s,
                                    path(u"gray:g"_s), u"--dry-run"_s, u"--output"_s, output()});
    EXPECT_EQ(outcome.status, 0) << outcome.errors;
    EXPECT_THAT(outcome.output, testing::HasSubstr("gray:g (Roughness / Gloss)\n"));
}

}  // namespace

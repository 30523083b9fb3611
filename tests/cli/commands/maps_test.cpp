#include "batch_test.h"
#include "engine/texture_processor.h"
#include "model/export_result.h"
#include "model/normal_generator_settings.h"
#include "model/output_resolution.h"
#include "model/texture_asset.h"
#include "set_files.h"

#include <QDir>
#include <QJsonArray>

#include <functional>

using namespace Qt::StringLiterals;

using namespace quarlin;
using namespace quarlin::fixtures;
using namespace quarlin::tests;

namespace {

class MapsCommand : public CliTest {
protected:
    const QString source = writeImage(u"Old Wood.png"_s, patternedImage(24, 16, 1));

    QStringList leastArguments() const {
        return {u"maps"_s, u"--source"_s, source, u"--output"_s, output(), u"--size"_s, u"base"_s};
    }

    static NormalGeneratorSettings leastSettings() {
        NormalGeneratorSettings settings;
        settings.materialName = u"Old Wood"_s;
        settings.outputResolution = OutputResolution::matchBase;
        return settings;
    }

    /// What the engine itself exports.
    FolderContents expected(const NormalGeneratorSettings& settings) const {
        const TextureProcessor processor{};
        const QUrl parent = QUrl::fromLocalFile(path(u"expected"_s));
        const TextureAsset asset = processor.loadAsset(QUrl::fromLocalFile(source));
        const QString folder =
            processor.exportGeneratedNormalSet(asset, settings, parent).folderURL.toLocalFile();
        return takenFrom(folder);
    }
};

TEST_F(MapsCommand, ReportsFolderAndFilesInWritingOrder) {
    const Outcome outcome = runCli(leastArguments());
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.errors, "");
    EXPECT_EQ(outcome.output, "Export complete: " + output().toStdString() + "/Old_Wood\n" +
                                  writtenLines(namesOf(generatedFiles(), u"Old_Wood"_s)));
    QStringList names = namesOf(generatedFiles(), u"Old_Wood"_s);
    names.sort();
    EXPECT_EQ(contentsOf(output() + u"/Old_Wood"_s).keys(), names);
}

TEST_F(MapsCommand, WritesTwoMapsWhenEverythingElseIsOff) {
    const Outcome outcome =
        runCli(leastArguments() + leavingOut(generatedFiles()) + QStringList{u"--json"_s});
    EXPECT_EQ(outcome.status, 0);
    const std::vector<QJsonObject> lines = jsonLines(outcome.output);
    ASSERT_EQ(lines.size(), 2U);
    EXPECT_EQ(lines[0][u"folder"_s].toString(), output() + u"/Old_Wood"_s);
    EXPECT_EQ(lines[0][u"files"_s].toArray(),
              (QJsonArray{u"Old_Wood_basecolor.png"_s, u"Old_Wood_normal.png"_s}));
    EXPECT_EQ(contentsOf(output() + u"/Old_Wood"_s).keys(),
              (QStringList{u"Old_Wood_basecolor.png"_s, u"Old_Wood_normal.png"_s}));
}

TEST_F(MapsCommand, MakesMapsOf2048PixelsByDefault) {
    ASSERT_EQ(runCli({u"maps"_s, u"--source"_s, source, u"--output"_s, output()}).status, 0);
    EXPECT_EQ(QImage(output() + u"/Old_Wood/Old_Wood_normal.png"_s).size(), QSize(2048, 2048));
}

/// An option, and the change that it must make to the minimal settings.
struct MapsOption {
    const char* name;
    const char* arguments;
    std::function<void(NormalGeneratorSettings&)> change;
};

class MapsSetting : public MapsCommand, public testing::WithParamInterface<MapsOption> {};

TEST_P(MapsSetting, WritesTheBytesOfTheEngine) {
    NormalGeneratorSettings settings = leastSettings();
    const FolderContents unchanged = expected(settings);
    GetParam().change(settings);
    const FolderContents wanted = expected(settings);
    ASSERT_TRUE(wanted != unchanged);

    const QStringList arguments = QString::fromUtf8(GetParam().arguments).split(u' ');
    QStringList all = leastArguments();
    if (arguments.contains(u"--size"_s)) {
        all.remove(all.indexOf(u"--size"_s), 2);
    }
    const Outcome outcome = runCli(all + arguments);
    EXPECT_EQ(outcome.status, 0) << outcome.errors;
    expectSame(contentsOf(output() + u'/' + settings.safeMaterialName()), wanted);
}

INSTANTIATE_TEST_SUITE_P(
    Options, MapsSetting,
    testing::Values(
        MapsOption{"Name", "--name Größe", [](auto& s) { s.materialName = u"Größe"_s; }},
        MapsOption{"EmptyName", "--name=", [](auto& s) { s.materialName.clear(); }},
        MapsOption{"Size", "--size 512", [](auto& s) { s.outputResolution = OutputResolution::px512; }},
        MapsOption{"StrengthLowest", "--strength 0.2", [](auto& s) { s.strength = 0.2; }},
        MapsOption{"StrengthHighest", "--strength 10", [](auto& s) { s.strength = 10; }},
        MapsOption{"SmoothingNone", "--smoothing 0", [](auto& s) { s.smoothing = 0; }},
        MapsOption{"SmoothingMost", "--smoothing 4", [](auto& s) { s.smoothing = 4; }},
        MapsOption{"InvertHeight", "--invert-height", [](auto& s) { s.invertHeight = true; }},
        MapsOption{"FlipGreen", "--flip-green", [](auto& s) { s.flipGreen = true; }},
        MapsOption{"RoughnessMin", "--roughness-min 0.4", [](auto& s) { s.roughnessMin = 0.4; }},
        MapsOption{"RoughnessMax", "--roughness-max 0.5", [](auto& s) { s.roughnessMax = 0.5; }},
        MapsOption{"RoughnessSwapped", "--roughness-min 0.9 --roughness-max 0.1",
                   [](auto& s) {
                       s.roughnessMin = 0.9;
                       s.roughnessMax = 0.1;
                   }},
        MapsOption{"MetallicStrength", "--metallic-strength 1", [](auto& s) { s.metallicStrength = 1; }},
        MapsOption{"AoStrength", "--ao-strength 0", [](auto& s) { s.aoStrength = 0; }}),
    [](const auto& tested) { return std::string(tested.param.name); });

/// The files that an option leaves out.
class MapsFile : public MapsCommand, public testing::WithParamInterface<ExpectedGeneratedFile> {};

TEST_P(MapsFile, IsLeftOutByItsOption) {
    NormalGeneratorSettings settings = leastSettings();
    settings.*GetParam().isExported = false;
    const FolderContents wanted = expected(settings);
    ASSERT_FALSE(wanted.contains(GetParam().name(u"Old_Wood"_s)));

    const Outcome outcome = runCli(leastArguments() + QStringList{QString::fromLatin1(GetParam().option)});
    EXPECT_EQ(outcome.status, 0) << outcome.errors;
    expectSame(contentsOf(output() + u"/Old_Wood"_s), wanted);
}

INSTANTIATE_TEST_SUITE_P(Options, MapsFile, testing::ValuesIn(withSwitch(generatedFiles())),
                         [](const auto& tested) {
                             return std::string(tested.param.option).substr(std::string("--no-").size());
                         });

}  // namespace

#include "engine/base/generated_maps.h"
#include "engine/base/texture_processor_error.h"
#include "engine/texture_processor.h"
#include "engine_errors.h"
#include "golden_text.h"
#include "imaging/pixels/pixel_image.h"
#include "independent_generator.h"
#include "limited_writing.h"
#include "model/export_result.h"
#include "model/normal_generator_settings.h"
#include "model/normal_output_names.h"
#include "model/output_resolution.h"
#include "model/texture_asset.h"
#include "picture.h"
#include "plain_outputs.h"
#include "png_files.h"
#include "png_inspection.h"
#include "rendering.h"
#include "set_files.h"
#include "temporary_folder.h"

#include <gtest/gtest.h>

#include <QDir>

using namespace Qt::StringLiterals;

using namespace quarlin;
using namespace quarlin::fixtures;

namespace {

class GeneratedExport : public InEnglish {
protected:
    GeneratedExport() {
        settings.materialName = u"Brick"_s;
        settings.outputResolution = OutputResolution::matchBase;
    }

    TextureAsset load(const Picture& picture) const {
        writePng(sourceFile, picture);
        return processor.loadAsset(sourceFile);
    }
    ExportResult exported(const std::optional<TextureAsset>& source) const {
        return processor.exportGeneratedNormalSet(source, settings, folder.url(u"out"_s));
    }
    std::optional<TextureProcessorError> exportError(const std::optional<TextureAsset>& source) const {
        return errorOf([&] { return exported(source); });
    }
    QUrl output(const char* name) const { return folder.url(u"out/Brick/"_s + QString::fromLatin1(name)); }
    QStringList outputNames() const { return folder.names(u"out/Brick"_s); }
    /// The written image of `file` of the set.
    QUrl output(const ExpectedGeneratedFile& file) const {
        return folder.url(u"out/Brick/"_s + file.name(u"Brick"_s));
    }
    void switchAll(bool on) { fixtures::switchAll(generatedFiles(), settings, on); }

    const TextureProcessor processor{};
    const TemporaryFolder folder;
    const QUrl sourceFile = folder.url(u"brick photo.png"_s);
    NormalGeneratorSettings settings;
};

const QStringList completeSet = namesOf(generatedFiles(), u"Brick"_s);
const QStringList images = namesOf(imagesOf(generatedFiles()), u"Brick"_s);
const QStringList alwaysWritten = namesOf(withoutSwitch(generatedFiles()), u"Brick"_s);

QStringList sorted(QStringList names) {
    names.sort();
    return names;
}

TEST_F(GeneratedExport, WritesEveryFileInOrder) {
    const ExportResult result = exported(load(noisePicture(21, 13, 1)));
    EXPECT_EQ(result.files, completeSet);
    EXPECT_EQ(outputNames(), sorted(completeSet));
    EXPECT_EQ(QDir::cleanPath(result.folderURL.toLocalFile()), folder.path(u"out/Brick"_s));
}

TEST_F(GeneratedExport, WithEverythingOffWritesExactlyTwoImages) {
    switchAll(false);
    const QStringList two = u"Brick_basecolor.png,Brick_normal.png"_s.split(u',');
    EXPECT_EQ(exported(load(noisePicture(21, 13, 1))).files, two);
    EXPECT_EQ(outputNames(), two);
}

TEST_F(GeneratedExport, EverySwitchWritesItsOwnFile) {
    const TextureAsset source = load(noisePicture(9, 7, 2));
    for (const auto& file : withSwitch(generatedFiles())) {
        switchAll(false);
        settings.*file.isExported = true;
        QDir(folder.path(u"out"_s)).removeRecursively();
        const QStringList on = alwaysWritten + QStringList{file.name(u"Brick"_s)};
        EXPECT_EQ(exported(source).files, on);
        EXPECT_EQ(outputNames(), sorted(on));
        switchAll(true);
        settings.*file.isExported = false;
        QStringList off = completeSet;
        off.removeOne(file.name(u"Brick"_s));
        EXPECT_EQ(exported(source).files, off);
    }
}

TEST_F(GeneratedExport, EveryImageAgreesWithASecondDerivation) {
    struct Case {
        int width, height;
        std::uint64_t seed;
        bool withAlpha;
    };
    std::uint64_t variation = 0;
    for (const Case& one : {Case{1, 1, 1, false}, Case{1, 33, 2, true}, Case{47, 1, 3, false},
                            Case{61, 43, 4, true}, Case{300, 517, 5, false}, Case{1025, 260, 6, true}}) {
        SCOPED_TRACE(testing::Message() << one.width << 'x' << one.height);
        ++variation;
        settings.smoothing = static_cast<int>(variation % 4);
        settings.strength = static_cast<double>(variation) * 1.7;
        settings.invertHeight = variation % 2 == 0;
        settings.flipGreen = variation % 3 == 0;
        settings.roughnessMin = 0.1 * static_cast<double>(variation);
        const Picture picture = noisePicture(one.width, one.height, one.seed, one.withAlpha);
        exported(load(picture));

        const independent::Maps maps =
            independent::maps(premultiplied(picture), one.width, one.height, settings);
        for (const auto& file : imagesOf(generatedFiles())) {
            SCOPED_TRACE(file.suffix);
            EXPECT_NO_THROW(inspectPng(readFile(output(file))));
            const Picture image = readPng(output(file));
            EXPECT_EQ(image.width, one.width);
            EXPECT_EQ(image.height, one.height);
            EXPECT_TRUE(sameBytes(maps[*file.image], premultiplied(image)));
        }
    }
}

TEST_F(GeneratedExport, EveryImageIsAnEightBitRgbaPngTaggedSrgb) {
    exported(load(noisePicture(300, 200, 7)));
    for (const QString& name : images) {
        const PngStructure png = inspectPng(readFile(folder.url(u"out/Brick/"_s + name)));
        EXPECT_EQ(png.width, 300U) << name.toStdString();
        EXPECT_EQ(png.height, 200U);
        EXPECT_EQ(png.bitDepth, 8);
        EXPECT_EQ(png.colorType, 6);
        EXPECT_EQ(png.interlace, 0);
        EXPECT_EQ(png.renderingIntent, QByteArray(1, '\0'));
    }
}

TEST_F(GeneratedExport, EveryImageIsWhatWritePngWrites) {
    const TextureAsset source = load(noisePicture(300, 200, 8, true));
    exported(source);
    const NormalOutputs outputs = processor.makeGeneratedNormalOutputs(sourceFile, settings, 300, 200);
    const QUrl single = folder.url(u"single.png"_s);
    for (const auto& file : imagesOf(generatedFiles())) {
        processor.writePNG(outputs[*file.image], single);
        EXPECT_EQ(readPng(single), readPng(output(file))) << file.suffix;
    }
}

TEST_F(GeneratedExport, OutputsAgreeWithTheSingleOperations) {
    writePng(sourceFile, noisePicture(90, 70, 9, true));
    for (const auto& [width, height] : {std::pair{90, 70}, {64, 64}, {1, 200}, {333, 17}}) {
        settings.smoothing = width % 4;
        const NormalOutputs outputs =
            processor.makeGeneratedNormalOutputs(sourceFile, settings, width, height);
        const NormalOutputs plain = plainOutputs(processor.renderImage(sourceFile, width, height), settings);
        for (const GeneratedMap map : allCases<GeneratedMap>()) {
            EXPECT_EQ(outputs[map], plain[map]) << rawValue(map).toStdString();
        }
    }
}

TEST_F(GeneratedExport, TheOutputsDoNotDependOnTheSwitches) {
    writePng(sourceFile, noisePicture(40, 30, 10));
    const NormalOutputs all = processor.makeGeneratedNormalOutputs(sourceFile, settings, 40, 30);
    switchAll(false);
    EXPECT_EQ(processor.makeGeneratedNormalOutputs(sourceFile, settings, 40, 30), all);
}

TEST_F(GeneratedExport, AMapIsTheSameWhateverElseIsWritten) {
    const TextureAsset source = load(noisePicture(120, 90, 11));
    exported(source);
    const QByteArray normal = readFile(output("Brick_normal.png"));
    const QByteArray occlusion = readFile(output("Brick_ao.png"));
    switchAll(false);
    settings.exportAO = true;
    exported(source);
    EXPECT_EQ(readFile(output("Brick_normal.png")), normal);
    EXPECT_EQ(readFile(output("Brick_ao.png")), occlusion);
}

TEST_F(GeneratedExport, WritesTheDocumentsAsTheyAreMade) {
    const TextureAsset source = load(smoothPicture(30, 20));
    exported(source);
    const NormalOutputNames names{u"Brick"_s};
    EXPECT_EQ(readFile(output("Brick.gltf")), TextureProcessor::makeGeneratedGLTFData(names, settings));
    EXPECT_EQ(readFile(output("Brick_maps_notes.txt")),
              TextureProcessor::makeNormalNotes(names, settings, source).toUtf8());
    EXPECT_TRUE(readFile(output("Brick_maps_notes.txt")).contains("\nbrick photo.png (30x20)\n"));
}

TEST_F(GeneratedExport, AFixedResolutionStretchesToASquare) {
    settings.outputResolution = OutputResolution::px512;
    exported(load(smoothPicture(30, 20)));
    for (const char* name : {"Brick_basecolor.png", "Brick_normal.png", "Brick_orm.png"}) {
        EXPECT_EQ(readPng(output(name)).width, 512);
        EXPECT_EQ(readPng(output(name)).height, 512);
    }
}

TEST_F(GeneratedExport, TheDefaultNameIsTheGenerators) {
    settings.materialName = u"   "_s;
    exported(load(smoothPicture(3, 3)));
    EXPECT_EQ(folder.names(u"out"_s), QStringList{u"VOREK_Normal"_s});
}

TEST_F(GeneratedExport, MakesTheFolderWithItsParents) {
    processor.exportGeneratedNormalSet(load(smoothPicture(3, 3)), settings, folder.url(u"a/b/c"_s));
    EXPECT_EQ(folder.names(u"a/b/c/Brick"_s), sorted(completeSet));
}

TEST_F(GeneratedExport, TwiceOverwritesTheSameFilesAndLeavesOthersAlone) {
    exported(load(noisePicture(40, 40, 12)));
    writeFile(output("readme.txt"), "mine");
    exported(load(smoothPicture(5, 5)));
    EXPECT_EQ(outputNames(), sorted(completeSet + QStringList{u"readme.txt"_s}));
    EXPECT_EQ(readPng(output("Brick_basecolor.png")), smoothPicture(5, 5));
    EXPECT_EQ(readFile(output("readme.txt")), "mine");
}

TEST_F(GeneratedExport, OntoItsOwnSourceGivesTheSameSetAgain) {
    exported(load(noisePicture(40, 30, 13, true)));
    std::vector<QByteArray> before;
    for (const QString& name : images) {
        before.push_back(readFile(folder.url(u"out/Brick/"_s + name)));
    }
    exported(processor.loadAsset(output("Brick_basecolor.png")));
    for (qsizetype index = 0; index < images.size(); ++index) {
        EXPECT_EQ(readFile(folder.url(u"out/Brick/"_s + images[index])),
                  before[static_cast<std::size_t>(index)])
            << images[index].toStdString();
    }
}

TEST_F(GeneratedExport, ReadsASourceThatHasChangedSinceItWasLoaded) {
    const TextureAsset source = load(smoothPicture(10, 10));
    writePng(sourceFile, constantPicture(3, 3, {40, 50, 60, 255}));
    exported(source);
    EXPECT_EQ(readPng(output("Brick_basecolor.png")), constantPicture(10, 10, {40, 50, 60, 255}));
}

class GeneratedExportFailure : public GeneratedExport {};

TEST_F(GeneratedExportFailure, WithoutSourceNothingIsCreated) {
    EXPECT_EQ(exportError(std::nullopt), TextureProcessorError::missingNormalSource());
    EXPECT_EQ(exportError(std::nullopt)->errorDescription(), u"Source texture is required."_s);
    EXPECT_EQ(folder.names(), QStringList());
}

TEST_F(GeneratedExportFailure, AnUnreadableSourceLeavesAnEmptyFolder) {
    const TextureAsset source = load(smoothPicture(5, 5));
    QFile::remove(sourceFile.toLocalFile());
    EXPECT_EQ(exportError(source), TextureProcessorError::cannotReadImage(sourceFile));
    EXPECT_EQ(exportError(source)->errorDescription(), u"Could not read image: brick photo.png"_s);
    EXPECT_TRUE(QFileInfo(folder.path(u"out/Brick"_s)).isDir());
    EXPECT_EQ(outputNames(), QStringList());
}

TEST_F(GeneratedExportFailure, AFolderInThePlaceOfAFileStopsThere) {
    const TextureAsset source = load(smoothPicture(5, 5));
    for (qsizetype index = 0; index < completeSet.size(); ++index) {
        SCOPED_TRACE(completeSet[index].toStdString());
        QDir(folder.path(u"out"_s)).removeRecursively();
        folder.makeFolder(u"out/Brick/"_s + completeSet[index]);
        const QUrl blocked = folder.url(u"out/Brick/"_s + completeSet[index]);
        EXPECT_EQ(exportError(source), index < images.size()
                                           ? TextureProcessorError::cannotCreatePNG(blocked)
                                           : TextureProcessorError::cannotWriteText(blocked));
        EXPECT_EQ(outputNames(), sorted(completeSet.first(index + 1)));
    }
}

TEST_F(GeneratedExportFailure, ASwitchedOffFileIsNotInTheWay) {
    const TextureAsset source = load(smoothPicture(5, 5));
    folder.makeFolder(u"out/Brick/Brick_gloss.png"_s);
    settings.exportGloss = false;
    EXPECT_EQ(exportError(source), std::nullopt);
}

TEST_F(GeneratedExportFailure, AFullDiskKeepsTheOlderSet) {
    exported(load(constantPicture(64, 64, {9, 9, 9, 255})));
    const QByteArray before = readFile(output("Brick_basecolor.png"));
    const TextureAsset source = load(noisePicture(64, 64, 14));
    {
        const FullDisk limit(3000);
        EXPECT_EQ(exportError(source), TextureProcessorError::cannotWritePNG(output("Brick_basecolor.png")));
    }
    EXPECT_EQ(readFile(output("Brick_basecolor.png")), before);
    EXPECT_EQ(outputNames(), sorted(completeSet));
}

TEST_F(GeneratedExportFailure, AFileInThePlaceOfTheFolderIsTheFileSystemsError) {
    const TextureAsset source = load(smoothPicture(5, 5));
    writeFile(folder.url(u"out"_s), "in the way");
    try {
        exported(source);
        FAIL() << "the export succeeded";
    } catch (const TextureProcessorError& error) {
        FAIL() << "the engine's own error: " << error.errorDescription().toStdString();
    } catch (const EngineError& error) {
        EXPECT_FALSE(error.errorDescription().isEmpty());
    }
    EXPECT_EQ(readFile(folder.url(u"out"_s)), "in the way");
}

}  // namespace

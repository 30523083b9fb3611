// Exports of textures that were only opened: what is written, and what is reported when a file turns out to
// be damaged while it is read.

#include "byte_comparison.h"
#include "engine/base/texture_processor_error.h"
#include "engine_errors.h"
#include "export_kind.h"
#include "jpeg_files.h"
#include "limited_writing.h"
#include "model/conversion_settings.h"
#include "model/normal_generator_settings.h"
#include "plain_outputs.h"
#include "rename_hook.h"

#include <QDir>
#include <QFile>

#include <optional>

using namespace Qt::StringLiterals;

using namespace quarlin;
using namespace quarlin::fixtures;

namespace {

class OpenedExport : public InEnglish {
protected:
    OpenedExport() {
        settings.materialName = u"Brick"_s;
        settings.outputResolution = OutputResolution::matchBase;
    }

    QUrl input(TextureSlotKind slot) const { return folder.url(rawValue(slot) + u".png"_s); }

    /// Writes a picture of several strips for each slot.
    void writeInputs(int width = 600, int height = 900) const {
        for (const TextureSlotKind slot : allCases<TextureSlotKind>()) {
            writePng(input(slot), noisePicture(width, height, static_cast<std::uint64_t>(slot) + 1), false);
        }
    }
    void openInputs() {
        for (const TextureSlotKind slot : allCases<TextureSlotKind>()) {
            textures.insert_or_assign(slot, processor.openAsset(input(slot)));
        }
    }
    TextureMap loadedInputs() const {
        TextureMap loaded;
        for (const TextureSlotKind slot : allCases<TextureSlotKind>()) {
            loaded.emplace(slot, processor.loadAsset(input(slot)));
        }
        return loaded;
    }
    /// Cuts the file of a slot in its last rows.
    void damage(TextureSlotKind slot) const {
        const QByteArray whole = readFile(input(slot));
        writeFile(input(slot), whole.chopped(2000));
    }
    ExportResult exported(const TextureMap& from, const QString& parent) const {
        return processor.exportMaterialSet(from, settings, folder.url(parent));
    }
    std::optional<TextureProcessorError> failure(const QString& parent = u"out"_s) const {
        return errorOf([&] { return exported(textures, parent); });
    }
    std::map<QString, QByteArray> filesIn(const QString& subfolder) const {
        std::map<QString, QByteArray> files;
        for (const QString& file : folder.names(subfolder)) {
            files[file] = readFile(folder.url(subfolder + u'/' + file));
        }
        return files;
    }

    const TextureProcessor processor{};
    const TemporaryFolder folder;
    ConversionSettings settings;
    TextureMap textures;
};

TEST_F(OpenedExport, KnowsTheSizeAndHasNoPixels) {
    writePng(input(TextureSlotKind::normal), smoothPicture(33, 21));
    const TextureAsset asset = processor.openAsset(input(TextureSlotKind::normal));
    EXPECT_EQ(asset.pixelWidth, 33);
    EXPECT_EQ(asset.pixelHeight, 21);
    EXPECT_EQ(asset.fileName, u"normal.png"_s);
    EXPECT_FALSE(asset.isLoaded());
    EXPECT_TRUE(processor.loadAsset(input(TextureSlotKind::normal)).isLoaded());
}

TEST_F(OpenedExport, WritesTheSameFilesAsOneOfLoadedTextures) {
    writeInputs();
    openInputs();
    for (const OutputResolution resolution : {OutputResolution::matchBase, OutputResolution::px512}) {
        settings.outputResolution = resolution;
        exported(textures, u"opened"_s);
        exported(loadedInputs(), u"loaded"_s);
        const auto opened = filesIn(u"opened/Brick"_s);
        EXPECT_EQ(opened.size(), 5U);
        EXPECT_EQ(opened, filesIn(u"loaded/Brick"_s));
    }
}

TEST_F(OpenedExport, DamageInTheLastRowsOfAnyInputWritesNothing) {
    for (const TextureSlotKind slot : allCases<TextureSlotKind>()) {
        writeInputs();
        damage(slot);
        openInputs();
        EXPECT_EQ(failure(u"new/parent"_s), TextureProcessorError::cannotReadImage(input(slot)));
        EXPECT_FALSE(folder.names().contains(u"new"_s)) << "folders were created";
    }
}

TEST_F(OpenedExport, DamageKeepsAnOlderSet) {
    writeInputs();
    openInputs();
    exported(textures, u"out"_s);
    const auto before = filesIn(u"out/Brick"_s);
    for (const TextureSlotKind slot : allCases<TextureSlotKind>()) {
        damage(slot);
        EXPECT_EQ(failure(), TextureProcessorError::cannotReadImage(input(slot)));
        EXPECT_EQ(filesIn(u"out/Brick"_s), before);
        writeInputs();
    }
}

TEST_F(OpenedExport, OfSeveralDamagedInputsTheFirstSlotIsReported) {
    const auto slots = allCases<TextureSlotKind>();
    for (std::size_t first = 0; first < slots.size(); ++first) {
        writeInputs();
        openInputs();
        damage(slots[first]);
        for (std::size_t other = first + 1; other < slots.size(); ++other) {
            // Noticed as soon as the file is opened, long before the end of the first one.
            writeFile(input(slots[other]), "no picture");
        }
        EXPECT_EQ(failure(), TextureProcessorError::cannotReadImage(input(slots[first])));
    }
}

TEST_F(OpenedExport, ADamagedInputComesBeforeAFolderThatCannotBeCreated) {
    writeInputs();
    openInputs();
    writeFile(folder.url(u"out"_s), "in the way");
    EXPECT_THROW(exported(textures, u"out"_s), FileSystemError);
    damage(TextureSlotKind::metallic);
    EXPECT_EQ(failure(), TextureProcessorError::cannotReadImage(input(TextureSlotKind::metallic)));
    NormalGeneratorSettings maps;
    EXPECT_EQ(errorOf([&] {
                  return processor.exportGeneratedNormalSet(textures.at(TextureSlotKind::metallic), maps,
                                                            folder.url(u"out"_s));
              }),
              TextureProcessorError::cannotReadImage(input(TextureSlotKind::metallic)));
}

TEST_F(OpenedExport, OfMapsWithDamageWritesNothing) {
    writeInputs();
    damage(TextureSlotKind::baseColor);
    const TextureAsset source = processor.openAsset(input(TextureSlotKind::baseColor));
    EXPECT_EQ(errorOf([&] {
                  return processor.exportGeneratedNormalSet(source, NormalGeneratorSettings(),
                                                            folder.url(u"new/parent"_s));
              }),
              TextureProcessorError::cannotReadImage(input(TextureSlotKind::baseColor)));
    EXPECT_FALSE(folder.names().contains(u"new"_s));
}

TEST_F(OpenedExport, ADraftThatIsMadeAgainReadsInputsWhoseNamesAreTakenByThen) {
    // The occlusion is read from the file that the new base color replaces. The ORM image is too large for
    // the disk until that has happened.
    writeInputs();
    openInputs();
    textures.erase(TextureSlotKind::normal);
    writePng(input(TextureSlotKind::baseColor), constantPicture(600, 900, {1, 2, 3, 255}), false);
    folder.makeFolder(u"out/Brick"_s);
    const QUrl replaced = folder.url(u"out/Brick/Brick_BaseColor.png"_s);
    ASSERT_TRUE(QFile::copy(input(TextureSlotKind::occlusion).toLocalFile(), replaced.toLocalFile()));
    exported(textures, u"expected"_s);
    textures.insert_or_assign(TextureSlotKind::occlusion, processor.openAsset(replaced));

    std::optional<FullDisk> disk(std::in_place, rlim_t{200'000});
    const RenameHook hook({}, [&](int) { disk.reset(); });
    exported(textures, u"out"_s);
    EXPECT_FALSE(disk.has_value());
    auto expected = filesIn(u"expected/Brick"_s);
    auto actual = filesIn(u"out/Brick"_s);
    // The notes name the input file.
    expected.erase(u"Brick_SL_PBR_notes.txt"_s);
    actual.erase(u"Brick_SL_PBR_notes.txt"_s);
    EXPECT_EQ(actual, expected);
}

TEST_F(OpenedExport, AnInputThatIsReplacedAfterItWasOpenedIsReadAsItIsNow) {
    writeInputs();
    openInputs();
    writePng(input(TextureSlotKind::baseColor), constantPicture(10, 10, {9, 8, 7, 255}), false);
    exported(textures, u"out"_s);
    EXPECT_EQ(readPng(folder.url(u"out/Brick/Brick_BaseColor.png"_s)),
              constantPicture(600, 900, {9, 8, 7, 255}));
}

/// Sizes at which strips are one row high, do not divide the height, or consist of the whole image.
class OpenedSizes : public OpenedExport, public testing::WithParamInterface<std::pair<int, int>> {};

TEST_P(OpenedSizes, GiveTheMapsOfThePlainOperations) {
    const auto [width, height] = GetParam();
    const Picture picture = noisePicture(width, height, 5);
    const QUrl file = input(TextureSlotKind::baseColor);
    writePng(file, picture, false);
    for (const int smoothing : {0, 1, 6}) {
        NormalGeneratorSettings maps;
        maps.materialName = u"Maps"_s;
        maps.outputResolution = OutputResolution::matchBase;
        maps.smoothing = smoothing;
        processor.exportGeneratedNormalSet(processor.openAsset(file), maps, folder.url(u"out"_s));
        const NormalOutputs expected = plainOutputs(pixelImage(picture), maps);
        for (const GeneratedFile each : allCases<GeneratedFile>()) {
            if (const auto map = tableRow(each).map) {
                const QUrl written = folder.url(u"out/Maps/Maps"_s + tableRow(each).suffix);
                EXPECT_TRUE(sameBytes(expected[*map].pixels, readPng(written).bytes))
                    << rawValue(*map).toStdString() << " smoothed " << smoothing;
            }
        }
    }
}

TEST_P(OpenedSizes, GiveTheOrmOfThePlainOperation) {
    const auto [width, height] = GetParam();
    writeInputs(width, height);
    openInputs();
    settings.roughnessInputIsGloss = true;
    exported(textures, u"out"_s);
    const PixelImage expected = processor.makeORM(loadedInputs(), settings, width, height);
    EXPECT_TRUE(sameBytes(expected.pixels, readPng(folder.url(u"out/Brick/Brick_ORM.png"_s)).bytes));
}

INSTANTIATE_TEST_SUITE_P(Sizes, OpenedSizes,
                         testing::Values(std::pair{1, 1}, std::pair{1, 3}, std::pair{3, 1},
                                         std::pair{2048, 131}, std::pair{70'000, 5}, std::pair{5, 7000},
                                         std::pair{1, 70'000}, std::pair{70'000, 1}),
                         [](const auto& instance) {
                             return std::to_string(instance.param.first) + "x" +
                                    std::to_string(instance.param.second);
                         });

/// Output sizes that scale each direction down or up.
TEST_F(OpenedExport, EveryDirectionOfScalingGivesWhatALoadedTextureGives) {
    settings.outputResolution = OutputResolution::px512;
    for (const auto& [width, height] :
         {std::pair{300, 2000}, {2000, 300}, {1500, 1500}, {100, 90}, {512, 700}}) {
        const Picture picture = noisePicture(width, height, 3, true);
        const QUrl file = input(TextureSlotKind::baseColor);
        writePng(file, picture);
        textures.clear();
        textures.emplace(TextureSlotKind::baseColor, processor.openAsset(file));
        exported(textures, u"out"_s);
        const PixelImage expected = processor.renderImage(file, 512, 512);
        textures.clear();
        // Written with straight alpha, and read back with premultiplied alpha again.
        EXPECT_TRUE(
            sameBytes(expected.pixels,
                      processor.renderImage(folder.url(u"out/Brick/Brick_BaseColor.png"_s), 512, 512).pixels))
            << width << " x " << height;
    }
}

}  // namespace

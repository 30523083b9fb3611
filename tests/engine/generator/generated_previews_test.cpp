#include "engine/base/generated_maps.h"
#include "engine/base/texture_processor_error.h"
#include "engine/texture_processor.h"
#include "engine_errors.h"
#include "imaging/base/pixel_size.h"
#include "model/generated_set.h"
#include "model/normal_generator_settings.h"
#include "model/output_resolution.h"
#include "model/previews.h"
#include "model/texture_asset.h"
#include "picture.h"
#include "png_files.h"
#include "rendering.h"
#include "set_files.h"
#include "temporary_folder.h"

#include <gmock/gmock.h>

#include <QFile>

using namespace Qt::StringLiterals;

using namespace quarlin;
using namespace quarlin::fixtures;

namespace {

class GeneratedPreviews : public testing::Test {
protected:
    GeneratedPreviews() { settings.outputResolution = OutputResolution::matchBase; }

    TextureAsset load(const Picture& picture) const {
        writePng(file, picture);
        return processor.loadAsset(file);
    }

    const TextureProcessor processor{};
    const TemporaryFolder folder;
    const QUrl file = folder.url(u"source.png"_s);
    NormalGeneratorSettings settings;
};

TEST_F(GeneratedPreviews, WithoutSourceAreNone) {
    EXPECT_TRUE(processor.buildNormalPreviews(std::nullopt, settings).empty());
}

TEST_F(GeneratedPreviews, AreOneOfEveryKind) {
    const NormalPreviews tiles = processor.buildNormalPreviews(load(smoothPicture(30, 20)), settings);
    EXPECT_EQ(tiles.size(), generatedTiles().size());
    for (const auto& tile : generatedTiles()) {
        ASSERT_TRUE(tiles.contains(tile.kind)) << tile.title;
        EXPECT_EQ(tiles.at(tile.kind).size(), QSize(30, 20));
    }
}

TEST_F(GeneratedPreviews, ShowTheMapsOfThePreviewSize) {
    const TextureAsset source = load(noisePicture(700, 300, 1, true));
    settings.smoothing = 2;
    for (const OutputResolution resolution : {OutputResolution::matchBase, OutputResolution::px1024}) {
        settings.outputResolution = resolution;
        const PixelSize size =
            resolution == OutputResolution::matchBase ? PixelSize{512, 219} : PixelSize{512, 512};
        const NormalOutputs maps =
            processor.makeGeneratedNormalOutputs(file, settings, size.width, size.height);
        const NormalPreviews tiles = processor.buildNormalPreviews(source, settings);
        for (const NormalPreviewKind kind : allCases<NormalPreviewKind>()) {
            EXPECT_TRUE(sameBytes(maps[kind].pixels, bytesOf(tiles.at(kind)))) << title(kind).toStdString();
        }
    }
}

TEST_F(GeneratedPreviews, OfAnyFixedResolutionAre512Square) {
    const TextureAsset source = load(smoothPicture(30, 20));
    for (const OutputResolution resolution :
         {OutputResolution::px512, OutputResolution::px2048, OutputResolution::px4096}) {
        settings.outputResolution = resolution;
        for (const auto& [kind, image] : processor.buildNormalPreviews(source, settings)) {
            EXPECT_EQ(image.size(), QSize(512, 512)) << title(kind).toStdString();
        }
    }
}

TEST_F(GeneratedPreviews, DoNotDependOnTheWriteSwitches) {
    const TextureAsset source = load(noisePicture(40, 30, 2));
    const NormalPreviews before = processor.buildNormalPreviews(source, settings);
    for (const auto& one : withSwitch(generatedFiles())) {
        settings.*one.isExported = false;
        EXPECT_EQ(processor.buildNormalPreviews(source, settings), before);
    }
}

TEST_F(GeneratedPreviews, OfADeletedSourceFail) {
    const TextureAsset source = load(smoothPicture(5, 5));
    QFile::remove(file.toLocalFile());
    EXPECT_EQ(errorOf([&] { return processor.buildNormalPreviews(source, settings); }),
              TextureProcessorError::cannotReadImage(file));
}

TEST_F(GeneratedPreviews, CreateNoFile) {
    processor.buildNormalPreviews(load(smoothPicture(5, 5)), settings);
    EXPECT_EQ(folder.names(), QStringList{u"source.png"_s});
}

}  // namespace

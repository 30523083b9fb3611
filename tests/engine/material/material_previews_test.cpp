#include "engine/base/texture_processor_error.h"
#include "engine/texture_processor.h"
#include "imaging/base/pixel_size.h"
#include "independent_generator.h"
#include "material_fixture.h"
#include "model/material_set.h"
#include "model/output_resolution.h"
#include "model/previews.h"
#include "model/texture_slot_kind.h"

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

using namespace quarlin;
using namespace quarlin::fixtures;
using testing::ElementsAre;

namespace {

TEST(PreviewSize, IsUnchangedUpTo512) {
    EXPECT_EQ(TextureProcessor::previewSize({300, 200}), (PixelSize{300, 200}));
    EXPECT_EQ(TextureProcessor::previewSize({512, 512}), (PixelSize{512, 512}));
    EXPECT_EQ(TextureProcessor::previewSize({1, 512}), (PixelSize{1, 512}));
    EXPECT_EQ(TextureProcessor::previewSize({1, 1}), (PixelSize{1, 1}));
}

TEST(PreviewSize, BringsTheLongSideTo512AndTruncatesTheShortOne) {
    EXPECT_EQ(TextureProcessor::previewSize({4096, 2048}), (PixelSize{512, 256}));
    EXPECT_EQ(TextureProcessor::previewSize({1000, 3}), (PixelSize{512, 1}));
    EXPECT_EQ(TextureProcessor::previewSize({513, 100}), (PixelSize{512, 99}));
    EXPECT_EQ(TextureProcessor::previewSize({3000, 2000}), (PixelSize{512, 341}));
    EXPECT_EQ(TextureProcessor::previewSize({1000, 700}), (PixelSize{512, 358}));
    EXPECT_EQ(TextureProcessor::previewSize({2000, 3000}), (PixelSize{341, 512}));
    EXPECT_EQ(TextureProcessor::previewSize({4096, 4096}), (PixelSize{512, 512}));
}

TEST(PreviewSize, IsNeverBelowOne) {
    EXPECT_EQ(TextureProcessor::previewSize({100000, 1}), (PixelSize{512, 1}));
    EXPECT_EQ(TextureProcessor::previewSize({1, 100000}), (PixelSize{1, 512}));
}

TEST(PreviewSize, TruncatesTheLongSideTooWhereTheScaleIsNotExact) {
    // 561 * (512.0 / 561) is 511.99999999999994.
    EXPECT_EQ(TextureProcessor::previewSize({561, 561}), (PixelSize{511, 511}));
    for (std::int64_t longSide = 513; longSide <= 20000; ++longSide) {
        volatile const double scale = 512.0 / static_cast<double>(longSide);
        const auto expected = static_cast<std::int64_t>(static_cast<double>(longSide) * scale);
        ASSERT_GE(expected, 511);
        ASSERT_EQ(TextureProcessor::previewSize({longSide, 7}).width, expected) << longSide;
        ASSERT_EQ(TextureProcessor::previewSize({7, longSide}).height, expected) << longSide;
    }
}

class MaterialPreviews : public MaterialJob {
protected:
    OutputPreviews previews() const { return processor.buildPreviews(textures, settings); }
    static std::vector<OutputPreviewKind> kinds(const OutputPreviews& tiles) {
        std::vector<OutputPreviewKind> result;
        for (const auto& [kind, image] : tiles) {
            result.push_back(kind);
        }
        return result;
    }
};

TEST_F(MaterialPreviews, OfNoTextureAreNone) { EXPECT_TRUE(previews().empty()); }

TEST_F(MaterialPreviews, OfABaseColorAreTwo) {
    load(TextureSlotKind::baseColor, smoothPicture(30, 20));
    EXPECT_THAT(kinds(previews()), ElementsAre(OutputPreviewKind::baseColor, OutputPreviewKind::orm));
}

TEST_F(MaterialPreviews, OfANormalMapAloneAreOrmAndNormal) {
    load(TextureSlotKind::normal, smoothPicture(30, 20));
    const OutputPreviews tiles = previews();
    EXPECT_THAT(kinds(tiles), ElementsAre(OutputPreviewKind::orm, OutputPreviewKind::normal));
    EXPECT_EQ(tiles.at(OutputPreviewKind::orm).size(), QSize(30, 20));
}

TEST_F(MaterialPreviews, OfAnOcclusionAloneAreOneOfItsSize) {
    load(TextureSlotKind::occlusion, constantPicture(33, 44, {100, 100, 100, 255}));
    const OutputPreviews tiles = previews();
    EXPECT_THAT(kinds(tiles), ElementsAre(OutputPreviewKind::orm));
    EXPECT_EQ(tiles.at(OutputPreviewKind::orm).size(), QSize(33, 44));
    EXPECT_TRUE(sameBytes(constantPicture(33, 44, {100, 166, 0, 255}).bytes,
                          bytesOf(tiles.at(OutputPreviewKind::orm))));
}

TEST_F(MaterialPreviews, TakeTheirSizeFromTheBaseColorWhereThereIsOne) {
    load(TextureSlotKind::normal, smoothPicture(99, 11));
    load(TextureSlotKind::baseColor, smoothPicture(300, 200));
    load(TextureSlotKind::metallic, smoothPicture(11, 99));
    for (const auto& [kind, image] : previews()) {
        EXPECT_EQ(image.size(), QSize(300, 200)) << title(kind).toStdString();
    }
}

TEST_F(MaterialPreviews, AreAsLargeAsAskedFor) {
    load(TextureSlotKind::baseColor, smoothPicture(1000, 30));
    for (const auto& [longestSide, size] :
         {std::pair(2048, QSize(1000, 30)), std::pair(700, QSize(700, 21)), std::pair(10, QSize(10, 1))}) {
        for (const auto& [kind, image] : processor.buildPreviews(textures, settings, longestSide)) {
            EXPECT_EQ(image.size(), size) << title(kind).toStdString();
        }
    }
}

TEST_F(MaterialPreviews, OfALargeBaseColorAreAtMost512) {
    load(TextureSlotKind::baseColor, smoothPicture(1000, 3));
    for (const auto& [kind, image] : previews()) {
        EXPECT_EQ(image.size(), QSize(512, 1)) << title(kind).toStdString();
    }
}

TEST_F(MaterialPreviews, OfAnyFixedResolutionAre512Square) {
    load(TextureSlotKind::baseColor, smoothPicture(30, 20));
    for (const OutputResolution resolution : {OutputResolution::px512, OutputResolution::px1024,
                                              OutputResolution::px2048, OutputResolution::px4096}) {
        settings.outputResolution = resolution;
        for (const auto& [kind, image] : previews()) {
            EXPECT_EQ(image.size(), QSize(512, 512)) << title(kind).toStdString();
        }
    }
}

TEST_F(MaterialPreviews, ShowWhatTheExportWrites) {
    load(TextureSlotKind::baseColor, noisePicture(60, 40, 1, true));
    load(TextureSlotKind::normal, noisePicture(31, 77, 2, true));
    load(TextureSlotKind::occlusion, noisePicture(20, 20, 3));
    load(TextureSlotKind::roughness, noisePicture(90, 10, 4));
    settings.flipNormalGreen = true;
    settings.roughnessInputIsGloss = true;
    settings.defaultMetallic = 0.4;
    for (const OutputResolution resolution : {OutputResolution::matchBase, OutputResolution::px512}) {
        settings.outputResolution = resolution;
        exported();
        const OutputPreviews tiles = previews();
        for (const auto& [kind, name] : {std::pair{OutputPreviewKind::baseColor, "Brick_BaseColor.png"},
                                         {OutputPreviewKind::orm, "Brick_ORM.png"},
                                         {OutputPreviewKind::normal, "Brick_Normal.png"}}) {
            EXPECT_TRUE(
                sameBytes(premultiplied(readPng(output(QString::fromLatin1(name)))), bytesOf(tiles.at(kind))))
                << name;
        }
    }
}

TEST_F(MaterialPreviews, KeepTheBaseColorsAlpha) {
    load(TextureSlotKind::baseColor, constantPicture(4, 4, {255, 0, 0, 128}));
    EXPECT_TRUE(sameBytes(premultiplied(constantPicture(4, 4, {255, 0, 0, 128})),
                          bytesOf(previews().at(OutputPreviewKind::baseColor))));
}

TEST_F(MaterialPreviews, DoNotDependOnTheWriteSwitchesOrTheName) {
    load(TextureSlotKind::baseColor, noisePicture(20, 20, 5));
    load(TextureSlotKind::normal, noisePicture(20, 20, 6));
    const OutputPreviews before = previews();
    settings.exportGLTF = false;
    settings.exportNotes = false;
    settings.materialName = u"Other"_s;
    EXPECT_EQ(previews(), before);
}

TEST_F(MaterialPreviews, CreateNoFile) {
    load(TextureSlotKind::baseColor, smoothPicture(20, 20));
    previews();
    EXPECT_EQ(folder.names(u"out"_s), QStringList());
    EXPECT_EQ(folder.names(u"in"_s), QStringList{u"baseColor.png"_s});
}

TEST_F(MaterialPreviews, TheFirstErrorStopsThemAll) {
    load(TextureSlotKind::baseColor, smoothPicture(20, 20));
    loadMissing(TextureSlotKind::normal);
    const auto error = [&] { return errorOf([&] { return previews(); }); };
    EXPECT_EQ(error(), TextureProcessorError::cannotReadImage(input(u"normal.png"_s)));
    loadMissing(TextureSlotKind::metallic);
    EXPECT_EQ(error(), TextureProcessorError::cannotReadImage(input(u"metallic.png"_s)));
    loadMissing(TextureSlotKind::baseColor);
    EXPECT_EQ(error(), TextureProcessorError::cannotReadImage(input(u"baseColor.png"_s)));
}

}  // namespace

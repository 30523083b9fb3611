#include "engine/base/texture_processor_error.h"
#include "engine/texture_processor.h"
#include "engine_errors.h"
#include "imaging/pixels/pixel_image.h"
#include "independent_generator.h"
#include "model/conversion_settings.h"
#include "model/texture_asset.h"
#include "model/texture_slot_kind.h"
#include "picture.h"
#include "png_files.h"
#include "rendering.h"
#include "temporary_folder.h"

#include <gtest/gtest.h>

#include <random>

using namespace Qt::StringLiterals;

using namespace quarlin;
using namespace quarlin::fixtures;

namespace {

class Orm : public testing::Test {
protected:
    /// A loaded texture with a file of its own.
    TextureAsset texture(const QString& name, const Picture& picture) const {
        writePng(folder.url(name), picture);
        return processor.loadAsset(folder.url(name));
    }
    TextureAsset gray(const QString& name, std::uint8_t value) const {
        return texture(name, constantPicture(4, 4, {value, value, value, 255}));
    }
    /// The color of a map that has the same color everywhere.
    Rgba colorOf(const TextureMap& textures, const ConversionSettings& chosen) const {
        const PixelImage orm = processor.makeORM(textures, chosen, 4, 4);
        const Rgba color = pixelAt(orm, 0, 0);
        EXPECT_EQ(orm, pixelImage(constantPicture(4, 4, color)));
        return color;
    }

    const TextureProcessor processor{};
    const TemporaryFolder folder;
    ConversionSettings settings;
};

TEST_F(Orm, WithoutTexturesIsFlatAtTheDefaults) {
    settings.defaultOcclusion = 1.0;
    settings.defaultRoughness = 0.5;
    settings.defaultMetallic = 0.0;
    EXPECT_EQ(processor.makeORM({}, settings, 7, 5), pixelImage(constantPicture(7, 5, {255, 128, 0, 255})));
}

TEST_F(Orm, TheSettingsDefaultsGive255And166And0) {
    EXPECT_EQ(colorOf({}, ConversionSettings()), (Rgba{255, 166, 0, 255}));
}

TEST_F(Orm, WhiteOcclusionIs254AndAMissingOneIs255) {
    EXPECT_EQ(colorOf({{TextureSlotKind::occlusion, gray(u"ao.png"_s, 255)}}, settings)[0], 254);
    EXPECT_EQ(colorOf({}, settings)[0], 255);
}

TEST_F(Orm, WhiteGlossInvertsToOne) {
    const TextureMap textures{{TextureSlotKind::roughness, gray(u"gloss.png"_s, 255)}};
    settings.roughnessInputIsGloss = true;
    EXPECT_EQ(colorOf(textures, settings)[1], 1);
    settings.roughnessInputIsGloss = false;
    EXPECT_EQ(colorOf(textures, settings)[1], 254);
}

TEST_F(Orm, BlackGlossInvertsTo255) {
    settings.roughnessInputIsGloss = true;
    EXPECT_EQ(colorOf({{TextureSlotKind::roughness, gray(u"gloss.png"_s, 0)}}, settings)[1], 255);
}

TEST_F(Orm, TheDefaultRoughnessIsNeverInverted) {
    settings.roughnessInputIsGloss = true;
    settings.defaultRoughness = 0.8;
    EXPECT_EQ(colorOf({}, settings)[1], 204);
}

TEST_F(Orm, GlossInvertsRoughnessAlone) {
    settings.roughnessInputIsGloss = true;
    const TextureMap textures{{TextureSlotKind::occlusion, gray(u"ao.png"_s, 100)},
                              {TextureSlotKind::roughness, gray(u"gloss.png"_s, 64)},
                              {TextureSlotKind::metallic, gray(u"metal.png"_s, 200)}};
    EXPECT_EQ(colorOf(textures, settings), (Rgba{100, 191, 200, 255}));
}

TEST_F(Orm, DefaultsOutsideTheUnitAreClamped) {
    settings.defaultOcclusion = 1.7;
    settings.defaultRoughness = -0.2;
    settings.defaultMetallic = 0.002;
    EXPECT_EQ(colorOf({}, settings), (Rgba{255, 0, 1, 255}));
}

TEST_F(Orm, OtherSlotsTakeNoPart) {
    const TextureMap textures{{TextureSlotKind::baseColor, gray(u"base.png"_s, 9)},
                              {TextureSlotKind::normal, gray(u"normal.png"_s, 9)}};
    EXPECT_EQ(colorOf(textures, settings), colorOf({}, settings));
}

TEST_F(Orm, ADefaultMattersOnlyWhereNoTextureIs) {
    const TextureMap textures{{TextureSlotKind::occlusion, gray(u"ao.png"_s, 100)},
                              {TextureSlotKind::roughness, gray(u"rough.png"_s, 64)},
                              {TextureSlotKind::metallic, gray(u"metal.png"_s, 200)}};
    const Rgba before = colorOf(textures, settings);
    settings.defaultOcclusion = settings.defaultRoughness = settings.defaultMetallic = 0.33;
    EXPECT_EQ(colorOf(textures, settings), before);
}

TEST_F(Orm, EachTextureIsStretchedToTheSize) {
    const TextureMap textures{
        {TextureSlotKind::occlusion, texture(u"ao.png"_s, constantPicture(100, 3, {1, 1, 1, 255}))},
        {TextureSlotKind::roughness, texture(u"rough.png"_s, constantPicture(2, 90, {64, 64, 64, 255}))},
        {TextureSlotKind::metallic, texture(u"metal.png"_s, constantPicture(1, 1, {128, 128, 128, 255}))}};
    EXPECT_EQ(processor.makeORM(textures, settings, 31, 47),
              pixelImage(constantPicture(31, 47, {1, 64, 128, 255})));
}

TEST_F(Orm, TransparentTexturesSampleTheirPremultipliedColor) {
    const TextureMap textures{
        {TextureSlotKind::metallic, texture(u"metal.png"_s, constantPicture(4, 4, {200, 200, 200, 128}))}};
    EXPECT_EQ(colorOf(textures, settings)[2], 100);
}

TEST_F(Orm, AgreesWithASecondDerivation) {
    std::mt19937_64 random(1);
    for (std::uint64_t seed = 0; seed < 40; ++seed) {
        const int width = 1 + static_cast<int>(random() % 67);
        const int height = 1 + static_cast<int>(random() % 67);
        TextureMap textures;
        std::array<independent::Bytes, 3> bytes;
        std::array<const independent::Bytes*, 3> loaded{};
        const std::array<TextureSlotKind, 3> slots{TextureSlotKind::occlusion, TextureSlotKind::roughness,
                                                   TextureSlotKind::metallic};
        for (std::size_t slot = 0; slot < 3; ++slot) {
            if (random() % 3 != 0) {
                const Picture picture = noisePicture(width, height, seed * 3 + slot, random() % 2 == 0);
                textures.emplace(slots[slot], texture(u"slot%1.png"_s.arg(slot), picture));
                bytes[slot] = premultiplied(picture);
                loaded[slot] = &bytes[slot];
            }
        }
        settings.roughnessInputIsGloss = random() % 2 == 0;
        settings.defaultOcclusion = std::uniform_real_distribution<double>(-0.1, 1.1)(random);
        settings.defaultRoughness = std::uniform_real_distribution<double>(-0.1, 1.1)(random);
        settings.defaultMetallic = std::uniform_real_distribution<double>(-0.1, 1.1)(random);
        const PixelImage orm = processor.makeORM(textures, settings, width, height);
        EXPECT_EQ(orm.width, width);
        EXPECT_EQ(orm.height, height);
        ASSERT_TRUE(sameBytes(
            independent::packedOrm(loaded[0], loaded[1], loaded[2],
                                   static_cast<std::size_t>(width) * static_cast<std::size_t>(height),
                                   settings.defaultOcclusion, settings.defaultRoughness,
                                   settings.defaultMetallic, settings.roughnessInputIsGloss),
            orm.pixels))
            << width << 'x' << height << " seed " << seed;
    }
}

TEST_F(Orm, ReportsTheFirstUnreadableSlotInTheOrderOfTheChannels) {
    const auto missing = [&](const char* name) {
        const QUrl url = folder.url(QString::fromLatin1(name));
        return TextureAsset{url, QString::fromLatin1(name), 4, 4, QImage()};
    };
    TextureMap textures{{TextureSlotKind::occlusion, missing("ao.png")},
                        {TextureSlotKind::roughness, missing("rough.png")},
                        {TextureSlotKind::metallic, missing("metal.png")}};
    const auto error = [&] { return errorOf([&] { return processor.makeORM(textures, settings, 4, 4); }); };
    EXPECT_EQ(error(), TextureProcessorError::cannotReadImage(folder.url(u"ao.png"_s)));
    textures.erase(TextureSlotKind::occlusion);
    EXPECT_EQ(error(), TextureProcessorError::cannotReadImage(folder.url(u"rough.png"_s)));
    textures.erase(TextureSlotKind::roughness);
    EXPECT_EQ(error(), TextureProcessorError::cannotReadImage(folder.url(u"metal.png"_s)));
}

TEST_F(Orm, AnImpossibleSizeGivesNoBitmap) {
    const TextureMap textures{{TextureSlotKind::occlusion, gray(u"ao.png"_s, 100)}};
    EXPECT_EQ(errorOf([&] { return processor.makeORM(textures, settings, 0, 4); }),
              TextureProcessorError::cannotCreateBitmap());
}

}  // namespace

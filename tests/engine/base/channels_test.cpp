#include "engine/base/channels.h"
#include "byte_comparison.h"
#include "engine/base/output_size.h"
#include "imaging/base/pixel_size.h"
#include "imaging/pixels/pixel_image.h"
#include "independent_generator.h"
#include "model/conversion_settings.h"
#include "model/output_resolution.h"
#include "model/texture_asset.h"

#include <gtest/gtest.h>

#include <random>
#include <vector>

using namespace quarlin;

namespace {

std::uint8_t grayOf(fixtures::Rgba pixel, bool inverted = false) {
    const PixelImage image{1, 1, PixelBuffer(pixel.begin(), pixel.end())};
    return grayscale(&image, 0, 77, inverted);
}

TextureAsset asset(std::int64_t width, std::int64_t height) {
    return {QUrl(), QString(), width, height, QImage()};
}

TEST(Grayscale, WhiteSamplesAs254) {
    EXPECT_EQ(grayOf({255, 255, 255, 255}), 254);
    EXPECT_EQ(grayOf({255, 255, 255, 255}, true), 1);
}

TEST(Grayscale, BlackSamplesAsZero) {
    EXPECT_EQ(grayOf({0, 0, 0, 255}), 0);
    EXPECT_EQ(grayOf({0, 0, 0, 255}, true), 255);
}

TEST(Grayscale, Gray10SamplesAs9) { EXPECT_EQ(grayOf({10, 10, 10, 255}), 9); }

TEST(Grayscale, MostGraysSampleAsThemselves) {
    for (const std::uint8_t gray : {std::uint8_t{1}, std::uint8_t{64}, std::uint8_t{100}, std::uint8_t{128},
                                    std::uint8_t{200}, std::uint8_t{254}}) {
        EXPECT_EQ(grayOf({gray, gray, gray, 255}), gray);
    }
}

TEST(Grayscale, WeighsByRec709AndTruncates) {
    EXPECT_EQ(grayOf({255, 0, 0, 255}), 54);   // 54.213
    EXPECT_EQ(grayOf({0, 255, 0, 255}), 182);  // 182.376
    EXPECT_EQ(grayOf({0, 0, 255, 255}), 18);   // 18.411
    EXPECT_EQ(grayOf({4, 0, 0, 255}), 0);      // 0.8504
    EXPECT_EQ(grayOf({5, 0, 0, 255}), 1);      // 1.063
}

TEST(Grayscale, IgnoresAlpha) {
    EXPECT_EQ(grayOf({64, 64, 64, 0}), 64);
    EXPECT_EQ(grayOf({64, 64, 64, 128}), 64);
}

TEST(Grayscale, TheFallbackIsNeverInverted) {
    EXPECT_EQ(grayscale(nullptr, 0, 204, false), 204);
    EXPECT_EQ(grayscale(nullptr, 0, 204, true), 204);
    EXPECT_EQ(grayscale(nullptr, 4000, 3, true), 3);
}

TEST(Grayscale, ReadsAtTheByteOffset) {
    const PixelImage image{2, 1, PixelBuffer{1, 1, 1, 255, 100, 100, 100, 255}};
    EXPECT_EQ(grayscale(&image, 4, 0, false), 100);
    EXPECT_EQ(grayscale(&image, 4, 0, true), 155);
}

TEST(Grayscale, AgreesWithASecondDerivationForEveryGray) {
    for (int gray = 0; gray < 256; ++gray) {
        const auto byte = static_cast<std::uint8_t>(gray);
        EXPECT_EQ(grayOf({byte, byte, byte, 255}), independent::luminanceByte({byte, byte, byte, 255}, 0));
    }
}

TEST(Grayscale, AgreesWithASecondDerivationForAnyColor) {
    std::mt19937_64 random(5);
    for (int count = 0; count < 200000; ++count) {
        const std::uint64_t bits = random();
        const fixtures::Rgba pixel{static_cast<std::uint8_t>(bits), static_cast<std::uint8_t>(bits >> 8),
                                   static_cast<std::uint8_t>(bits >> 16),
                                   static_cast<std::uint8_t>(bits >> 24)};
        const int expected = independent::luminanceByte({pixel.begin(), pixel.end()}, 0);
        ASSERT_EQ(grayOf(pixel), expected);
        ASSERT_EQ(grayOf(pixel, true), 255 - expected);
    }
}

TEST(WriteGray, SetsOpaqueGrayAtTheOffsetOnly) {
    std::vector<std::uint8_t> pixels(12, 9);
    writeGray(200, pixels, 4);
    EXPECT_EQ(pixels, (std::vector<std::uint8_t>{9, 9, 9, 9, 200, 200, 200, 255, 9, 9, 9, 9}));
}

TEST(ResolvedOutputSize, AFixedResolutionIsAlwaysSquare) {
    ConversionSettings settings;
    settings.outputResolution = OutputResolution::px1024;
    EXPECT_EQ(resolvedOutputSize(asset(2000, 1000), settings), (PixelSize{1024, 1024}));
    settings.outputResolution = OutputResolution::px512;
    EXPECT_EQ(resolvedOutputSize(asset(1, 9000), settings), (PixelSize{512, 512}));
    settings.outputResolution = OutputResolution::px2048;
    EXPECT_EQ(resolvedOutputSize(asset(1, 1), settings), (PixelSize{2048, 2048}));
    settings.outputResolution = OutputResolution::px4096;
    EXPECT_EQ(resolvedOutputSize(asset(1, 1), settings), (PixelSize{4096, 4096}));
}

TEST(ResolvedOutputSize, BaseSizeIsTheBaseTexturesOwn) {
    ConversionSettings settings;
    settings.outputResolution = OutputResolution::matchBase;
    EXPECT_EQ(resolvedOutputSize(asset(2000, 1000), settings), (PixelSize{2000, 1000}));
    EXPECT_EQ(resolvedOutputSize(asset(1, 1), settings), (PixelSize{1, 1}));
}

TEST(ResolvedOutputSize, IsTheSameRuleOnPlainNumbers) {
    for (const OutputResolution resolution : allCases<OutputResolution>()) {
        ConversionSettings settings;
        settings.outputResolution = resolution;
        EXPECT_EQ(resolvedOutputSize(300, 200, resolution), resolvedOutputSize(asset(300, 200), settings));
    }
}

}  // namespace

#include "engine/reference/height_field.h"
#include "byte_comparison.h"
#include "imaging/pixels/pixel_image.h"
#include "model/normal_generator_settings.h"
#include "picture.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

using namespace quarlin;
using namespace quarlin::fixtures;

namespace {

std::vector<double> blurred(const std::vector<double>& values, std::int64_t width, std::int64_t height) {
    const reference::HeightField result = reference::boxBlur(values, width, height);
    return {result.begin(), result.end()};
}

std::vector<double> heightsOf(const Picture& picture, int smoothing, bool inverted = false) {
    NormalGeneratorSettings settings;
    settings.smoothing = smoothing;
    settings.invertHeight = inverted;
    const reference::HeightField result = reference::smoothedHeightValues(pixelImage(picture), settings);
    return {result.begin(), result.end()};
}

TEST(BoxBlur, LeavesASinglePixelAlone) { EXPECT_EQ(blurred({0.3}, 1, 1), (std::vector<double>{0.3})); }

TEST(BoxBlur, SpreadsOneBrightPixelByTheWindowsSize) {
    const double corner = 1.0 / 4;
    const double edge = 1.0 / 6;
    EXPECT_EQ(blurred({0, 0, 0, 0, 1, 0, 0, 0, 0}, 3, 3),
              (std::vector<double>{corner, edge, corner, edge, 1.0 / 9, edge, corner, edge, corner}));
}

TEST(BoxBlur, CutsTheWindowOffAtTheEdges) {
    EXPECT_EQ(blurred({1, 2, 3, 4}, 4, 1), (std::vector<double>{3.0 / 2, 6.0 / 3, 9.0 / 3, 7.0 / 2}));
    EXPECT_EQ(blurred({1, 2, 3, 4}, 1, 4), (std::vector<double>{3.0 / 2, 6.0 / 3, 9.0 / 3, 7.0 / 2}));
    EXPECT_EQ(blurred({1, 2, 3, 4}, 2, 2), (std::vector<double>(4, 10.0 / 4)));
}

TEST(BoxBlur, DoesNotWrapAround) {
    const std::vector<double> result = blurred({1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0}, 4, 4);
    EXPECT_EQ(result[3], 0);
    EXPECT_EQ(result[12], 0);
    EXPECT_EQ(result[15], 0);
}

TEST(BoxBlur, AddsRowByRowAndLeftToRight) {
    // The sum of the window depends on the order: in the other order the large values cancel first.
    const double large = 1e16;
    EXPECT_EQ(blurred({1, large, -large}, 3, 1)[1], ((1 + large) - large) / 3.0);
    EXPECT_EQ(blurred({-large, large, 1}, 3, 1)[1], 1.0 / 3.0);
    EXPECT_EQ(blurred({1, large, -large}, 1, 3)[1], ((1 + large) - large) / 3.0);
    EXPECT_EQ(blurred({-large, large, 1}, 1, 3)[1], 1.0 / 3.0);
    // Rows come before columns: only then is the 1 of the first row added to the large value before the 1 of
    // the second row.
    const std::vector<double> rowsFirst{1, large, 0, 1, -large, 0, 0, 0, 0};
    const double sum = ((((1 + large) + 0) + 1) + -large);
    EXPECT_EQ(blurred(rowsFirst, 3, 3)[4], sum / 9.0);
}

TEST(BoxBlur, ReadsOnlyItsInput) {
    std::vector<double> values(25);
    values[12] = 1;
    const std::vector<double> result = blurred(values, 5, 5);
    EXPECT_EQ(result[18], 1.0 / 9);
    EXPECT_EQ(result[24], 0);
    EXPECT_EQ(values[12], 1);
}

TEST(HeightField, AConstantImageStaysConstantThroughAnyNumberOfPasses) {
    for (const int smoothing : {0, 1, 2, 6, 20}) {
        const std::vector<double> heights = heightsOf(constantPicture(9, 7, {128, 128, 128, 255}), smoothing);
        for (const double height : heights) {
            // A sum of nine equal numbers is rounded at each step, so the result is only equal within that
            // error.
            EXPECT_NEAR(height, 128 / 255.0, 1e-14);
        }
    }
}

TEST(HeightField, NoPassesGiveTheGraysThemselves) {
    const Picture picture{2, 2, {0, 0, 0, 255, 10, 10, 10, 255, 64, 64, 64, 255, 255, 255, 255, 255}};
    const std::vector<double> expected{0 / 255.0, 9 / 255.0, 64 / 255.0, 254 / 255.0};
    EXPECT_EQ(heightsOf(picture, 0), expected);
    EXPECT_EQ(heightsOf(picture, -1), expected);
    EXPECT_EQ(heightsOf(picture, -1000), expected);
}

TEST(HeightField, InvertedWhiteIsOneAboveZeroAndBlackIsOne) {
    // White gives a sample of 254, so its inverse is 1 of 255.
    const Picture picture{2, 1, {255, 255, 255, 255, 0, 0, 0, 255}};
    EXPECT_EQ(heightsOf(picture, 0, true), (std::vector<double>{1 / 255.0, 1.0}));
}

TEST(HeightField, EveryPassReadsTheOneBefore) {
    const Picture picture = noisePicture(13, 11, 3);
    std::vector<double> expected = heightsOf(picture, 0);
    for (int passes = 1; passes <= 5; ++passes) {
        expected = blurred(expected, 13, 11);
        EXPECT_EQ(heightsOf(picture, passes), expected) << passes;
    }
}

TEST(HeightField, IgnoresTheAlphaByte) {
    const PixelImage half{1, 1, PixelBuffer{100, 100, 100, 128}};
    NormalGeneratorSettings settings;
    EXPECT_EQ(reference::smoothedHeightValues(half, settings)[0], 100 / 255.0);
}

TEST(HeightField, IsNotStretchedToItsOwnRange) {
    const std::vector<double> heights = heightsOf(Picture{2, 1, {100, 100, 100, 255, 128, 128, 128, 255}}, 0);
    EXPECT_EQ(heights, (std::vector<double>{100 / 255.0, 128 / 255.0}));
}

TEST(HeightField, OfAnEmptyImageIsEmpty) {
    EXPECT_TRUE(reference::smoothedHeightValues(PixelImage(), NormalGeneratorSettings()).empty());
}

TEST(SampleHeight, ReadsTheNearestEdgePixelOutside) {
    const std::vector<double> values{1, 2, 3, 4, 5, 6};
    const auto sample = [&](int x, int y) { return reference::sampleHeight(values, 3, 2, x, y); };
    EXPECT_EQ(sample(-1, 0), 1);
    EXPECT_EQ(sample(3, 0), 3);
    EXPECT_EQ(sample(-100, 1), 4);
    EXPECT_EQ(sample(100, 1), 6);
    EXPECT_EQ(sample(1, -1), 2);
    EXPECT_EQ(sample(1, 2), 5);
    EXPECT_EQ(sample(-7, -7), 1);
    EXPECT_EQ(sample(9, 9), 6);
}

TEST(SampleHeight, ReadsThePixelInside) {
    const std::vector<double> values{1, 2, 3, 4, 5, 6};
    for (int y = 0; y < 2; ++y) {
        for (int x = 0; x < 3; ++x) {
            EXPECT_EQ(reference::sampleHeight(values, 3, 2, x, y), 1 + x + y * 3);
        }
    }
}

TEST(HeightImage, IsOpaqueGray) {
    const std::vector<double> values{0.5, 0, 1, 0.25};
    EXPECT_EQ(reference::heightImage(values, 2, 2),
              (PixelImage{
                  2, 2, PixelBuffer{128, 128, 128, 255, 0, 0, 0, 255, 255, 255, 255, 255, 64, 64, 64, 255}}));
}

TEST(HeightImage, ClampsHeightsOutsideTheUnit) {
    const std::vector<double> values{-0.5, 1.5};
    EXPECT_EQ(reference::heightImage(values, 2, 1),
              (PixelImage{2, 1, PixelBuffer{0, 0, 0, 255, 255, 255, 255, 255}}));
}

}  // namespace

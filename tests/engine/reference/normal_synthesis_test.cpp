#include "engine/reference/normal_synthesis.h"
#include "byte_comparison.h"
#include "imaging/pixels/pixel_image.h"
#include "model/normal_generator_settings.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <limits>
#include <vector>

using namespace quarlin;
using fixtures::Rgba;

namespace {

PixelImage normals(const std::vector<double>& heights, std::int64_t width, std::int64_t height,
                   double strength = 3.0, bool flipGreen = false) {
    NormalGeneratorSettings settings;
    settings.strength = strength;
    settings.flipGreen = flipGreen;
    return reference::normalImage(heights, width, height, settings);
}

std::vector<double> field(int width, int height, const std::function<double(int x, int y)>& value) {
    std::vector<double> values;
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            values.push_back(value(x, y));
        }
    }
    return values;
}

std::uint8_t signedByte(double component) {
    return static_cast<std::uint8_t>(std::lround((component * 0.5 + 0.5) * 255));
}

const Rgba flat{128, 128, 255, 255};

TEST(NormalSynthesis, AConstantFieldIsFlatAtAnyStrength) {
    for (const double strength : {-3.0, 0.0, 0.05, 3.0, 1e6}) {
        for (const bool flipGreen : {false, true}) {
            const PixelImage image = normals(std::vector<double>(35, 0.4), 7, 5, strength, flipGreen);
            for (int y = 0; y < 5; ++y) {
                for (int x = 0; x < 7; ++x) {
                    EXPECT_EQ(pixelAt(image, x, y), flat);
                }
            }
        }
    }
}

TEST(NormalSynthesis, ASinglePixelIsFlat) {
    EXPECT_EQ(normals({0.9}, 1, 1, 100), (PixelImage{1, 1, PixelBuffer{128, 128, 255, 255}}));
}

TEST(NormalSynthesis, AHeightRisingToTheRightGivesRedBelow128) {
    const PixelImage image = normals(field(5, 5, [](int x, int) { return x / 10.0; }), 5, 5);
    const Rgba middle = pixelAt(image, 2, 2);
    EXPECT_LT(middle[0], 128);
    EXPECT_EQ(middle[1], 128);
    EXPECT_LT(middle[2], 255);
}

TEST(NormalSynthesis, AHeightRisingDownwardGivesGreenBelow128) {
    const std::vector<double> heights = field(5, 5, [](int, int y) { return y / 10.0; });
    EXPECT_EQ(pixelAt(normals(heights, 5, 5), 2, 2)[0], 128);
    EXPECT_LT(pixelAt(normals(heights, 5, 5), 2, 2)[1], 128);
    EXPECT_GT(pixelAt(normals(heights, 5, 5, 3, true), 2, 2)[1], 128);
}

TEST(NormalSynthesis, TheEdgesOfARampHaveHalfItsSlope) {
    const int width = 9;
    const PixelImage image = normals(field(width, 2, [](int x, int) { return x / (width - 1.0); }), width, 2);
    const auto expected = [](double slope) {
        const double length = std::sqrt(slope * slope + 1);
        return Rgba{signedByte(-slope / length), 128, signedByte(1 / length), 255};
    };
    const double inside = 3.0 * 2 / (width - 1);
    for (int x = 1; x < width - 1; ++x) {
        EXPECT_EQ(pixelAt(image, x, 0), expected(inside)) << x;
    }
    EXPECT_EQ(pixelAt(image, 0, 0), expected(inside / 2));
    EXPECT_EQ(pixelAt(image, width - 1, 1), expected(inside / 2));
}

TEST(NormalSynthesis, TheDifferenceIsNotHalved) {
    // From 0 to 1 across two pixels with strength 1 is a slope of 1: 45 degrees.
    const PixelImage image = normals({0, 0.7, 1}, 3, 1, 1);
    EXPECT_EQ(pixelAt(image, 1, 0),
              (Rgba{signedByte(-std::sqrt(0.5)), 128, signedByte(std::sqrt(0.5)), 255}));
}

TEST(NormalSynthesis, OnlyTheFourDirectNeighborsCount) {
    const PixelImage image = normals({1, 0.5, 0, 0.5, 0.9, 0.5, 0, 0.5, 1}, 3, 3);
    EXPECT_EQ(pixelAt(image, 1, 1), flat);
}

TEST(NormalSynthesis, StrengthBelowTheLeastCountsAsTheLeast) {
    const std::vector<double> heights =
        field(8, 6, [](int x, int y) { return ((x * 7 + y * 5) % 11) / 10.0; });
    const PixelImage least = normals(heights, 8, 6, 0.05);
    EXPECT_EQ(normals(heights, 8, 6, 0), least);
    EXPECT_EQ(normals(heights, 8, 6, -3), least);
    EXPECT_EQ(normals(heights, 8, 6, 0.0499), least);
    EXPECT_NE(normals(heights, 8, 6, 0.2), least);
    EXPECT_NE(least, normals(std::vector<double>(48, 0.5), 8, 6));
}

TEST(NormalSynthesis, IsOpaqueEverywhere) {
    const PixelImage image = normals(field(6, 6, [](int x, int y) { return (x * y % 4) / 3.0; }), 6, 6);
    for (std::size_t index = 3; index < image.pixels.size(); index += 4) {
        EXPECT_EQ(image.pixels[index], 255);
    }
}

TEST(Normalized, DividesByTheLength) {
    EXPECT_EQ(reference::normalized(0, 0, 1), (std::tuple{0.0, 0.0, 1.0}));
    EXPECT_EQ(reference::normalized(3, 0, 4), (std::tuple{3 / 5.0, 0.0, 4 / 5.0}));
    const auto [x, y, z] = reference::normalized(2, -3, 6);
    EXPECT_EQ(x, 2 / 7.0);
    EXPECT_EQ(y, -3 / 7.0);
    EXPECT_EQ(z, 6 / 7.0);
}

TEST(Normalized, NeverDividesByLessThanATenThousandth) {
    EXPECT_EQ(reference::normalized(0, 0, 0), (std::tuple{0.0, 0.0, 0.0}));
    EXPECT_EQ(reference::normalized(0.00005, 0, 0), (std::tuple{0.00005 / 0.0001, 0.0, 0.0}));
    EXPECT_EQ(reference::normalized(0, 0.0002, 0), (std::tuple{0.0, 1.0, 0.0}));
}

TEST(Normalized, AddsXAndYBeforeZ) {
    // Only in this order is the sum of the two small squares large enough to change the large one.
    const double small = std::sqrt(std::numeric_limits<double>::epsilon() * 0.75);
    const double z = 1.0;
    volatile const double square = small * small;
    volatile const double both = square + square;
    const double length = std::sqrt(both + z);
    EXPECT_EQ(std::get<2>(reference::normalized(small, small, z)), z / length);
}

}  // namespace

// Compares the engine's generator with a second implementation of the same formulas, byte by byte.

#include "byte_comparison.h"
#include "engine/base/generated_maps.h"
#include "engine/reference/height_field.h"
#include "engine/reference/normal_synthesis.h"
#include "engine/reference/surface_maps.h"
#include "imaging/pixels/pixel_image.h"
#include "independent_generator.h"
#include "model/normal_generator_settings.h"
#include "random_generator_input.h"

#include <gtest/gtest.h>

using namespace quarlin;
using namespace quarlin::fixtures;

namespace {

void expectTwin(int width, int height, std::uint64_t seed, const NormalGeneratorSettings& settings) {
    SCOPED_TRACE(testing::Message() << width << 'x' << height << " seed " << seed << " strength "
                                    << settings.strength << " smoothing " << settings.smoothing
                                    << " inverted " << settings.invertHeight << " flipped "
                                    << settings.flipGreen << " roughness " << settings.roughnessMin << ".."
                                    << settings.roughnessMax << " metallic " << settings.metallicStrength
                                    << " ao " << settings.aoStrength);
    const PixelImage source = sourceImage(width, height, seed);
    const independent::Bytes bytes(source.pixels.begin(), source.pixels.end());

    const reference::HeightField heights = reference::smoothedHeightValues(source, settings);
    const independent::Heights twinHeights =
        independent::heights(bytes, width, height, settings.invertHeight, settings.smoothing);
    ASSERT_EQ(independent::Heights(heights.begin(), heights.end()), twinHeights);
    ASSERT_TRUE(sameBytes(independent::heightMap(twinHeights),
                          reference::heightImage(heights, width, height).pixels));
    ASSERT_TRUE(
        sameBytes(independent::normalMap(twinHeights, width, height, settings.strength, settings.flipGreen),
                  reference::normalImage(heights, width, height, settings).pixels));

    const GeneratedSurfaceMaps maps = reference::generatedSurfaceMaps(source, heights, settings);
    const independent::Maps twin = independent::maps(bytes, width, height, settings);
    for (const GeneratedMap map : surfaceMaps) {
        ASSERT_TRUE(sameBytes(twin[map], maps[map].pixels)) << rawValue(map).toStdString();
    }
}

TEST(GeneratorTwin, AgreesForEverySmallSize) {
    RandomSettings settings(1);
    std::uint64_t seed = 0;
    for (int height = 1; height <= 9; ++height) {
        for (int width = 1; width <= 9; ++width) {
            for (int repeat = 0; repeat < 4; ++repeat) {
                expectTwin(width, height, seed++, settings.next());
                ASSERT_FALSE(HasFatalFailure());
            }
        }
    }
}

TEST(GeneratorTwin, AgreesForOnePixelRowsAndColumns) {
    RandomSettings settings(2);
    for (int length = 1; length <= 70; ++length) {
        expectTwin(length, 1, static_cast<std::uint64_t>(length), settings.next());
        ASSERT_FALSE(HasFatalFailure());
        expectTwin(1, length, static_cast<std::uint64_t>(length) + 2, settings.next());
        ASSERT_FALSE(HasFatalFailure());
    }
}

TEST(GeneratorTwin, AgreesForOddSizes) {
    RandomSettings settings(3);
    std::mt19937_64 random(3);
    for (std::uint64_t seed = 0; seed < 120; ++seed) {
        const int width = 1 + static_cast<int>(random() % 71);
        const int height = 1 + static_cast<int>(random() % 71);
        expectTwin(width, height, seed, settings.next());
        ASSERT_FALSE(HasFatalFailure());
    }
}

TEST(GeneratorTwin, AgreesForLargerImages) {
    RandomSettings settings(4);
    const std::array<std::array<int, 2>, 6> sizes{
        {{256, 256}, {511, 3}, {3, 517}, {1023, 40}, {129, 255}, {401, 301}}};
    std::uint64_t seed = 100;
    for (const auto& [width, height] : sizes) {
        expectTwin(width, height, seed++, settings.next());
        ASSERT_FALSE(HasFatalFailure());
    }
}

TEST(GeneratorTwin, AgreesForTheDefaultSettings) {
    for (std::uint64_t seed = 0; seed < 12; ++seed) {
        expectTwin(61, 47, seed, NormalGeneratorSettings());
        ASSERT_FALSE(HasFatalFailure());
    }
}

TEST(GeneratorTwin, AgreesForAnyFieldAndNotOnlyForBytesDividedBy255) {
    std::mt19937_64 random(6);
    std::uniform_real_distribution<double> unit(0, 1);
    for (const double strength : {0.05, 1.0, 7.3}) {
        std::vector<double> field(53 * 31);
        for (double& value : field) {
            value = unit(random);
        }
        NormalGeneratorSettings settings;
        settings.strength = strength;
        EXPECT_TRUE(sameBytes(independent::normalMap(field, 53, 31, strength, false),
                              reference::normalImage(field, 53, 31, settings).pixels));
        EXPECT_TRUE(sameBytes(independent::heightMap(field), reference::heightImage(field, 53, 31).pixels));
        const reference::HeightField blurred = reference::boxBlur(field, 53, 31);
        EXPECT_EQ(independent::blurred(field, 53, 31), independent::Heights(blurred.begin(), blurred.end()));
        for (int y = 0; y < 31; ++y) {
            for (int x = 0; x < 53; ++x) {
                ASSERT_EQ(independent::contrast(field, 53, 31, x, y),
                          reference::localHeightContrast(field, 53, 31, x, y));
            }
        }
    }
}

TEST(GeneratorTwin, AgreesOnTheCubicStep) {
    std::mt19937_64 random(7);
    std::uniform_real_distribution<double> around(-0.2, 1.2);
    for (int count = 0; count < 50000; ++count) {
        const double from = around(random);
        const double to = count % 10 == 0 ? from : around(random);
        const double value = count % 7 == 0 ? from : around(random);
        ASSERT_EQ(independent::smoothStep(from, to, value), reference::smoothStep(from, to, value));
    }
}

}  // namespace

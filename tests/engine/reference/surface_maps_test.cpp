#include "engine/reference/surface_maps.h"
#include "byte_comparison.h"
#include "engine/base/generated_maps.h"
#include "imaging/pixels/pixel_image.h"
#include "model/normal_generator_settings.h"
#include "picture.h"

#include <gtest/gtest.h>

#include <cmath>
#include <vector>

using namespace quarlin;
using namespace quarlin::fixtures;

namespace {

std::uint8_t unitByte(double value) { return static_cast<std::uint8_t>(std::lround(value * 255)); }

/// The maps of a source with a given height field.
GeneratedSurfaceMaps mapsOf(const Picture& source, const std::vector<double>& heights,
                            const NormalGeneratorSettings& settings = {}) {
    return reference::generatedSurfaceMaps(pixelImage(source), heights, settings);
}

/// The maps of a single color with equal heights.
GeneratedSurfaceMaps mapsOf(Rgba color, const NormalGeneratorSettings& settings = {}) {
    return mapsOf(constantPicture(3, 3, color), std::vector<double>(9, 0.5), settings);
}

Rgba gray(std::uint8_t value) { return {value, value, value, 255}; }

TEST(SmoothStep, RunsFromZeroToOne) {
    EXPECT_EQ(reference::smoothStep(0.2, 0.6, 0.1), 0.0);
    EXPECT_EQ(reference::smoothStep(0.2, 0.6, 0.2), 0.0);
    EXPECT_DOUBLE_EQ(reference::smoothStep(0, 1, 0.5), 0.5);
    EXPECT_DOUBLE_EQ(reference::smoothStep(0, 1, 0.25), 0.15625);
    EXPECT_EQ(reference::smoothStep(0.2, 0.6, 0.6), 1.0);
    EXPECT_EQ(reference::smoothStep(0.2, 0.6, 7), 1.0);
}

TEST(SmoothStep, HalfGrayIsBarelyBright) {
    EXPECT_NEAR(reference::smoothStep(0.42, 0.92, 0.5), 0.068608, 1e-15);
}

TEST(SmoothStep, OfEqualEdgesIsAHardStep) {
    EXPECT_EQ(reference::smoothStep(0.5, 0.5, 0.5), 1.0);
    EXPECT_EQ(reference::smoothStep(0.5, 0.5, std::nextafter(0.5, 0.0)), 0.0);
    EXPECT_EQ(reference::smoothStep(0.5, 0.5, 2), 1.0);
}

TEST(SmoothStep, OfCrossedEdgesRunsBackwards) {
    EXPECT_EQ(reference::smoothStep(0.6, 0.2, 0.1), 1.0);
    EXPECT_EQ(reference::smoothStep(0.6, 0.2, 0.7), 0.0);
}

TEST(LocalHeightContrast, IsSixTimesTheLargestDifferenceToANeighbor) {
    const std::vector<double> values{0.50, 0.52, 0.50, 0.50, 0.50, 0.45, 0.50, 0.50, 0.50};
    EXPECT_EQ(reference::localHeightContrast(values, 3, 3, 1, 1), (0.50 - 0.45) * 6.0);
    EXPECT_EQ(reference::localHeightContrast(values, 3, 3, 0, 0), (0.52 - 0.50) * 6.0);
    EXPECT_EQ(reference::localHeightContrast(values, 3, 3, 0, 2), 0.0);
}

TEST(LocalHeightContrast, IsAtMostOne) {
    const std::vector<double> values{0, 1};
    EXPECT_EQ(reference::localHeightContrast(values, 2, 1, 0, 0), 1.0);
    EXPECT_EQ(reference::localHeightContrast(values, 1, 2, 0, 1), 1.0);
}

TEST(LocalHeightContrast, OfASinglePixelIsZero) {
    const std::vector<double> values{0.7};
    EXPECT_EQ(reference::localHeightContrast(values, 1, 1, 0, 0), 0.0);
}

TEST(LocalHeightContrast, DoesNotWrapAround) {
    const std::vector<double> values{0.5, 0.5, 0.5, 0.9};
    EXPECT_EQ(reference::localHeightContrast(values, 4, 1, 0, 0), 0.0);
    EXPECT_EQ(reference::localHeightContrast(values, 1, 4, 0, 0), 0.0);
}

TEST(SurfaceMaps, HaveTheSourcesSizeAndAreOpaque) {
    const Picture source = noisePicture(7, 5, 1, true);
    const GeneratedSurfaceMaps maps = mapsOf(source, std::vector<double>(35, 0.5));
    for (const GeneratedMap map : surfaceMaps) {
        const PixelImage& image = maps[map];
        EXPECT_EQ(image.width, 7);
        EXPECT_EQ(image.height, 5);
        ASSERT_EQ(image.pixels.size(), 7U * 5 * 4);
        for (std::size_t index = 3; index < image.pixels.size(); index += 4) {
            EXPECT_EQ(image.pixels[index], 255);
        }
    }
}

TEST(SurfaceMaps, AreGrayButForThePackedOne) {
    const Picture source = noisePicture(9, 9, 2);
    const GeneratedSurfaceMaps maps = mapsOf(source, std::vector<double>(81, 0.5));
    for (const GeneratedMap map : surfaceMaps) {
        if (!isGray(map)) {
            continue;
        }
        const PixelImage& image = maps[map];
        for (std::size_t index = 0; index < image.pixels.size(); index += 4) {
            EXPECT_EQ(image.pixels[index], image.pixels[index + 1]);
            EXPECT_EQ(image.pixels[index], image.pixels[index + 2]);
        }
    }
}

TEST(SurfaceMaps, OrmHoldsOcclusionRoughnessAndMetallic) {
    const Picture source = noisePicture(16, 12, 3);
    std::vector<double> heights;
    for (std::size_t index = 0; index < 192; ++index) {
        heights.push_back(source.bytes[index * 4] / 255.0);
    }
    const GeneratedSurfaceMaps maps = mapsOf(source, heights);
    for (std::size_t index = 0; index < maps[GeneratedMap::orm].pixels.size(); index += 4) {
        EXPECT_EQ(maps[GeneratedMap::orm].pixels[index], maps[GeneratedMap::occlusion].pixels[index]);
        EXPECT_EQ(maps[GeneratedMap::orm].pixels[index + 1], maps[GeneratedMap::roughness].pixels[index]);
        EXPECT_EQ(maps[GeneratedMap::orm].pixels[index + 2], maps[GeneratedMap::metallic].pixels[index]);
        EXPECT_EQ(maps[GeneratedMap::orm].pixels[index + 3], 255);
    }
}

TEST(SurfaceMaps, LevelBlackIsRoughAndNoMetal) {
    const GeneratedSurfaceMaps maps = mapsOf({0, 0, 0, 255});
    EXPECT_EQ(pixelAt(maps[GeneratedMap::roughness], 1, 1), gray(unitByte(0.82)));
    EXPECT_EQ(pixelAt(maps[GeneratedMap::gloss], 1, 1), gray(unitByte(1.0 - 0.82)));
    EXPECT_EQ(pixelAt(maps[GeneratedMap::metallic], 1, 1), gray(0));
    EXPECT_EQ(pixelAt(maps[GeneratedMap::occlusion], 1, 1), gray(255));
}

TEST(SurfaceMaps, BlackGetsSmootherByItsContrastAlone) {
    std::vector<double> heights(9, 0.5);
    heights[4] = 0.52;
    const GeneratedSurfaceMaps maps = mapsOf(constantPicture(3, 3, {0, 0, 0, 255}), heights);
    const double contrast = (0.52 - 0.5) * 6;
    EXPECT_EQ(pixelAt(maps[GeneratedMap::roughness], 1, 1),
              gray(unitByte(0.82 - 1.6 * contrast * (0.82 - 0.18))));
}

TEST(SurfaceMaps, HighContrastReachesTheLowerBound) {
    std::vector<double> heights(9, 0.1);
    heights[4] = 0.9;
    const GeneratedSurfaceMaps maps = mapsOf(constantPicture(3, 3, {0, 0, 0, 255}), heights);
    EXPECT_EQ(pixelAt(maps[GeneratedMap::roughness], 1, 1), gray(unitByte(0.18)));
}

TEST(SurfaceMaps, LevelHalfGrayIsAlmostAsRoughAsItGets) {
    const double luminance = 128 / 255.0;
    const double t = (luminance - 0.42) / 0.5;
    const double smoothness = t * t * (3 - 2 * t) * 0.75;
    const GeneratedSurfaceMaps maps = mapsOf({128, 128, 128, 255});
    EXPECT_EQ(pixelAt(maps[GeneratedMap::roughness], 1, 1), gray(unitByte(0.82 - smoothness * 0.64)));
    EXPECT_EQ(pixelAt(maps[GeneratedMap::occlusion], 1, 1), gray(255));
}

TEST(SurfaceMaps, WhiteIsAsMetallicAsTheStrengthSays) {
    const GeneratedSurfaceMaps maps = mapsOf({255, 255, 255, 255});
    EXPECT_EQ(pixelAt(maps[GeneratedMap::metallic], 0, 0), gray(unitByte(0.45)));
    EXPECT_EQ(pixelAt(maps[GeneratedMap::roughness], 0, 0), gray(unitByte(0.82 - 0.75 * 0.64)));
}

TEST(SurfaceMaps, MetallicIsClamped) {
    NormalGeneratorSettings settings;
    settings.metallicStrength = 5;
    EXPECT_EQ(pixelAt(mapsOf({255, 255, 255, 255}, settings)[GeneratedMap::metallic], 0, 0), gray(255));
    settings.metallicStrength = -5;
    EXPECT_EQ(pixelAt(mapsOf({255, 255, 255, 255}, settings)[GeneratedMap::metallic], 0, 0), gray(0));
}

TEST(SurfaceMaps, PureColorsAreNoMetal) {
    NormalGeneratorSettings settings;
    settings.metallicStrength = 1;
    for (const Rgba color : {Rgba{255, 0, 0, 255}, Rgba{0, 255, 0, 255}, Rgba{0, 0, 255, 255},
                             Rgba{255, 255, 0, 255}, Rgba{0, 40, 200, 255}}) {
        EXPECT_EQ(pixelAt(mapsOf(color, settings)[GeneratedMap::metallic], 1, 1), gray(0));
    }
}

TEST(SurfaceMaps, SourceAlphaIsIgnored) {
    const std::vector<double> heights(4, 0.5);
    const PixelImage opaque{2, 2,
                            PixelBuffer{90, 80, 70, 255, 60, 50, 40, 255, 30, 20, 10, 255, 99, 99, 99, 255}};
    PixelImage clear = opaque;
    for (std::size_t index = 3; index < clear.pixels.size(); index += 4) {
        clear.pixels[index] = 128;
    }
    EXPECT_EQ(reference::generatedSurfaceMaps(opaque, heights, {}),
              reference::generatedSurfaceMaps(clear, heights, {}));
}

TEST(SurfaceMaps, SwappedRoughnessBoundsAreAccepted) {
    const Picture source = noisePicture(12, 12, 4);
    std::vector<double> heights;
    for (std::size_t index = 0; index < 144; ++index) {
        heights.push_back(source.bytes[index * 4 + 1] / 255.0);
    }
    NormalGeneratorSettings ordered;
    ordered.roughnessMin = 0.1;
    ordered.roughnessMax = 0.9;
    NormalGeneratorSettings swapped = ordered;
    std::swap(swapped.roughnessMin, swapped.roughnessMax);
    EXPECT_EQ(mapsOf(source, heights, ordered), mapsOf(source, heights, swapped));
}

TEST(SurfaceMaps, EqualRoughnessBoundsPinTheRoughness) {
    NormalGeneratorSettings settings;
    settings.roughnessMin = settings.roughnessMax = 0.5;
    const Picture source = noisePicture(12, 12, 5);
    const GeneratedSurfaceMaps maps = mapsOf(source, std::vector<double>(144, 0.5), settings);
    EXPECT_EQ(maps[GeneratedMap::roughness], pixelImage(constantPicture(12, 12, gray(128))));
    EXPECT_EQ(maps[GeneratedMap::gloss], pixelImage(constantPicture(12, 12, gray(128))));
}

TEST(SurfaceMaps, AHigherPixelGetsNoOcclusion) {
    std::vector<double> heights(9, 0.3);
    heights[4] = 0.8;
    EXPECT_EQ(pixelAt(mapsOf(constantPicture(3, 3, gray(128)), heights)[GeneratedMap::occlusion], 1, 1),
              gray(255));
}

TEST(SurfaceMaps, APitIsDarkenedByItsDepth) {
    std::vector<double> heights(9, 0.6);
    heights[4] = 0.42;
    const double mean = (8 * 0.6 + 0.42) / 9;
    EXPECT_EQ(pixelAt(mapsOf(constantPicture(3, 3, gray(128)), heights)[GeneratedMap::occlusion], 1, 1),
              gray(unitByte(1 - (mean - 0.42) * 3 * 0.55)));
}

TEST(SurfaceMaps, NoOcclusionStrengthMeansNoOcclusion) {
    NormalGeneratorSettings settings;
    settings.aoStrength = 0;
    std::vector<double> heights(9, 0.9);
    heights[4] = 0;
    EXPECT_EQ(mapsOf(constantPicture(3, 3, gray(10)), heights, settings)[GeneratedMap::occlusion],
              pixelImage(constantPicture(3, 3, gray(255))));
}

TEST(SurfaceMaps, GlossComesFromTheFractionAndNotFromTheRoughnessByte) {
    // At a roughness of exactly half a byte step, both it and its complement round up.
    NormalGeneratorSettings settings;
    settings.roughnessMin = settings.roughnessMax = 0.5;
    const GeneratedSurfaceMaps maps = mapsOf({200, 30, 60, 255}, settings);
    EXPECT_EQ(pixelAt(maps[GeneratedMap::roughness], 0, 0), gray(128));
    EXPECT_EQ(pixelAt(maps[GeneratedMap::gloss], 0, 0), gray(128));
}

}  // namespace

// What must hold of the generated maps for any image and any settings.

#include "byte_comparison.h"
#include "engine/base/channels.h"
#include "engine/base/generated_maps.h"
#include "engine/reference/height_field.h"
#include "engine/reference/normal_synthesis.h"
#include "engine/reference/surface_maps.h"
#include "imaging/pixels/pixel_image.h"
#include "model/normal_generator_settings.h"
#include "picture.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

using namespace quarlin;
using namespace quarlin::fixtures;

namespace {

struct Maps {
    PixelImage height, normal;
    GeneratedSurfaceMaps surface;
};

Maps mapsOf(const Picture& picture, const NormalGeneratorSettings& settings) {
    const PixelImage source = pixelImage(picture);
    const reference::HeightField heights = reference::smoothedHeightValues(source, settings);
    return {reference::heightImage(heights, source.width, source.height),
            reference::normalImage(heights, source.width, source.height, settings),
            reference::generatedSurfaceMaps(source, heights, settings)};
}

Picture pictureOf(const PixelImage& image) {
    return {static_cast<int>(image.width),
            static_cast<int>(image.height),
            {image.pixels.begin(), image.pixels.end()}};
}

/// Several sizes, contents and settings, the same on every machine.
template <typename Check>
void forAnyImage(Check&& check) {
    std::mt19937_64 random(20);
    const auto unit = [&] { return std::uniform_real_distribution<double>(0, 1)(random); };
    for (std::uint64_t seed = 0; seed < 60; ++seed) {
        const int width = 1 + static_cast<int>(random() % 40);
        const int height = 1 + static_cast<int>(random() % 40);
        const Picture picture =
            seed % 3 == 0 ? smoothPicture(width, height) : noisePicture(width, height, seed, seed % 3 == 1);
        NormalGeneratorSettings settings;
        settings.strength = 12 * unit();
        settings.smoothing = static_cast<int>(random() % 6) - 1;
        settings.invertHeight = random() % 2 == 0;
        settings.flipGreen = random() % 2 == 0;
        settings.roughnessMin = unit();
        settings.roughnessMax = unit();
        settings.metallicStrength = unit();
        settings.aoStrength = unit();
        SCOPED_TRACE(testing::Message()
                     << width << 'x' << height << " seed " << seed << " smoothing " << settings.smoothing);
        check(picture, settings);
        if (testing::Test::HasFailure()) {
            return;
        }
    }
}

TEST(GeneratorProperties, AConstantImageIsFlatEverywhere) {
    forAnyImage([](const Picture& picture, NormalGeneratorSettings settings) {
        settings.smoothing = 0;
        const Maps maps = mapsOf(constantPicture(picture.width, picture.height, picture.at(0, 0)), settings);
        EXPECT_EQ(pictureOf(maps.normal),
                  constantPicture(picture.width, picture.height, {128, 128, 255, 255}));
    });
}

TEST(GeneratorProperties, AConstantImageStaysFlatUnderSmoothingButForTheRoundingNearTheEdges) {
    // The mean of equal numbers may differ from them in its last bit, and differently so in the cut-off
    // windows at the edges. Zero slope lies exactly on a half (127.5), so there the last bit decides between
    // 127 and 128.
    forAnyImage([](const Picture& picture, const NormalGeneratorSettings& settings) {
        const Maps maps = mapsOf(constantPicture(picture.width, picture.height, picture.at(0, 0)), settings);
        const int margin = std::max(settings.smoothing, 0) + 1;
        for (int y = 0; y < picture.height; ++y) {
            for (int x = 0; x < picture.width; ++x) {
                const Rgba normal = pixelAt(maps.normal, x, y);
                ASSERT_TRUE(normal[0] == 128 || normal[0] == 127) << +normal[0];
                ASSERT_TRUE(normal[1] == 128 || normal[1] == 127) << +normal[1];
                ASSERT_EQ(normal[2], 255);
                ASSERT_EQ(normal[3], 255);
                if (std::min({x, y, picture.width - 1 - x, picture.height - 1 - y}) >= margin) {
                    ASSERT_EQ(normal, (Rgba{128, 128, 255, 255}));
                }
            }
        }
    });
}

TEST(GeneratorProperties, AConstantImageHasConstantSurfaceMaps) {
    forAnyImage([](const Picture& picture, const NormalGeneratorSettings& settings) {
        const Maps maps = mapsOf(constantPicture(picture.width, picture.height, picture.at(0, 0)), settings);
        const auto expectConstant = [](const PixelImage& map) {
            EXPECT_EQ(pictureOf(map), constantPicture(static_cast<int>(map.width),
                                                      static_cast<int>(map.height), pixelAt(map, 0, 0)));
        };
        expectConstant(maps.height);
        expectConstant(maps.surface.roughness);
        expectConstant(maps.surface.gloss);
        expectConstant(maps.surface.metallic);
        expectConstant(maps.surface.orm);
        EXPECT_EQ(pictureOf(maps.surface.occlusion),
                  constantPicture(picture.width, picture.height, {255, 255, 255, 255}));
    });
}

TEST(GeneratorProperties, FlippingGreenChangesOnlyGreen) {
    forAnyImage([](const Picture& picture, NormalGeneratorSettings settings) {
        const Maps before = mapsOf(picture, settings);
        settings.flipGreen = !settings.flipGreen;
        const Maps after = mapsOf(picture, settings);
        EXPECT_EQ(before.height, after.height);
        EXPECT_EQ(before.surface, after.surface);
        for (std::size_t index = 0; index < before.normal.pixels.size(); ++index) {
            const int sum = before.normal.pixels[index] + after.normal.pixels[index];
            if (index % 4 == 1) {
                // The two fractions add up to one, so their bytes add up to 255, or to 256 where both are
                // halves and round up: a level slope is 128 either way.
                ASSERT_TRUE(sum == 255 || sum == 256) << index;
            } else {
                ASSERT_EQ(before.normal.pixels[index], after.normal.pixels[index]) << index;
            }
        }
    });
}

TEST(GeneratorProperties, RoughnessStaysWithinItsBounds) {
    forAnyImage([](const Picture& picture, const NormalGeneratorSettings& settings) {
        const auto [low, high] = std::minmax(settings.roughnessMin, settings.roughnessMax);
        const Maps maps = mapsOf(picture, settings);
        for (std::size_t index = 0; index < maps.surface.roughness.pixels.size(); index += 4) {
            ASSERT_GE(maps.surface.roughness.pixels[index], byteFromUnit(low));
            ASSERT_LE(maps.surface.roughness.pixels[index], byteFromUnit(high));
        }
    });
}

TEST(GeneratorProperties, GlossIsTheInverseOfRoughnessUpToOneStep) {
    forAnyImage([](const Picture& picture, const NormalGeneratorSettings& settings) {
        const Maps maps = mapsOf(picture, settings);
        for (std::size_t index = 0; index < maps.surface.gloss.pixels.size(); index += 4) {
            const int sum = maps.surface.roughness.pixels[index] + maps.surface.gloss.pixels[index];
            ASSERT_TRUE(sum == 255 || sum == 256) << index;
        }
    });
}

TEST(GeneratorProperties, MetallicNeverExceedsItsStrength) {
    forAnyImage([](const Picture& picture, const NormalGeneratorSettings& settings) {
        const Maps maps = mapsOf(picture, settings);
        for (std::size_t index = 0; index < maps.surface.metallic.pixels.size(); index += 4) {
            ASSERT_LE(maps.surface.metallic.pixels[index], byteFromUnit(settings.metallicStrength));
        }
    });
}

TEST(GeneratorProperties, OcclusionNeverFallsBelowItsStrength) {
    forAnyImage([](const Picture& picture, const NormalGeneratorSettings& settings) {
        const Maps maps = mapsOf(picture, settings);
        for (std::size_t index = 0; index < maps.surface.occlusion.pixels.size(); index += 4) {
            ASSERT_GE(maps.surface.occlusion.pixels[index], byteFromUnit(1 - settings.aoStrength));
        }
    });
}

TEST(GeneratorProperties, NormalsPointOutOfTheSurface) {
    forAnyImage([](const Picture& picture, const NormalGeneratorSettings& settings) {
        const Maps maps = mapsOf(picture, settings);
        for (std::size_t index = 0; index < maps.normal.pixels.size(); index += 4) {
            ASSERT_GE(maps.normal.pixels[index + 2], 128);
        }
    });
}

/// How far the maps of a turned picture may lie from the turned maps: not at all where no window was summed,
/// one step where one was, because the turned window adds the same numbers in another order.
int blurTolerance(const NormalGeneratorSettings& settings) { return settings.smoothing < 1 ? 0 : 1; }

TEST(GeneratorProperties, MirroredInputMirrorsTheMapsWithRedInverted) {
    forAnyImage([](const Picture& picture, const NormalGeneratorSettings& settings) {
        const Maps maps = mapsOf(picture, settings);
        const Maps turned = mapsOf(mirrored(picture), settings);
        const int tolerance = blurTolerance(settings);
        const auto expectMirrored = [](const PixelImage& map, const PixelImage& other, int allowed) {
            EXPECT_TRUE(nearlySameBytes(mirrored(pictureOf(map)).bytes, other.pixels, allowed));
        };
        expectMirrored(maps.height, turned.height, tolerance);
        expectMirrored(maps.surface.roughness, turned.surface.roughness, tolerance);
        expectMirrored(maps.surface.gloss, turned.surface.gloss, tolerance);
        // The metal mask sees no height at all.
        expectMirrored(maps.surface.metallic, turned.surface.metallic, 0);
        // The cavity always compares with one window's mean.
        expectMirrored(maps.surface.occlusion, turned.surface.occlusion, 1);

        const Picture expected = mirrored(pictureOf(maps.normal));
        for (std::size_t index = 0; index < expected.bytes.size(); ++index) {
            const int sum = expected.bytes[index] + turned.normal.pixels[index];
            const int difference = expected.bytes[index] - turned.normal.pixels[index];
            if (index % 4 == 0) {
                ASSERT_GE(sum, 255 - tolerance) << index;
                ASSERT_LE(sum, 256 + tolerance) << index;
            } else {
                ASSERT_LE(std::abs(difference), tolerance) << index;
            }
        }
    });
}

TEST(GeneratorProperties, FlippedInputFlipsTheMapsWithGreenInverted) {
    forAnyImage([](const Picture& picture, const NormalGeneratorSettings& settings) {
        const Maps maps = mapsOf(picture, settings);
        const Maps turned = mapsOf(flipped(picture), settings);
        const int tolerance = blurTolerance(settings);
        EXPECT_TRUE(nearlySameBytes(flipped(pictureOf(maps.height)).bytes, turned.height.pixels, tolerance));
        EXPECT_TRUE(nearlySameBytes(flipped(pictureOf(maps.surface.roughness)).bytes,
                                    turned.surface.roughness.pixels, tolerance));
        EXPECT_TRUE(
            sameBytes(flipped(pictureOf(maps.surface.metallic)).bytes, turned.surface.metallic.pixels));
        EXPECT_TRUE(nearlySameBytes(flipped(pictureOf(maps.surface.occlusion)).bytes,
                                    turned.surface.occlusion.pixels, 1));
        const Picture expected = flipped(pictureOf(maps.normal));
        for (std::size_t index = 0; index < expected.bytes.size(); ++index) {
            const int sum = expected.bytes[index] + turned.normal.pixels[index];
            const int difference = expected.bytes[index] - turned.normal.pixels[index];
            if (index % 4 == 1) {
                ASSERT_GE(sum, 255 - tolerance) << index;
                ASSERT_LE(sum, 256 + tolerance) << index;
            } else {
                ASSERT_LE(std::abs(difference), tolerance) << index;
            }
        }
    });
}

TEST(GeneratorProperties, InvertedHeightInvertsTheUnsmoothedHeightMap) {
    forAnyImage([](const Picture& picture, NormalGeneratorSettings settings) {
        settings.smoothing = 0;
        settings.invertHeight = false;
        const Maps upright = mapsOf(picture, settings);
        settings.invertHeight = true;
        const Maps inverted = mapsOf(picture, settings);
        for (std::size_t index = 0; index < upright.height.pixels.size(); ++index) {
            if (index % 4 != 3) {
                ASSERT_EQ(upright.height.pixels[index] + inverted.height.pixels[index], 255);
            }
        }
    });
}

TEST(GeneratorProperties, TheSameCallGivesTheSameBytes) {
    forAnyImage([](const Picture& picture, const NormalGeneratorSettings& settings) {
        const Maps first = mapsOf(picture, settings);
        const Maps second = mapsOf(picture, settings);
        EXPECT_EQ(first.height, second.height);
        EXPECT_EQ(first.normal, second.normal);
        EXPECT_EQ(first.surface, second.surface);
    });
}

}  // namespace

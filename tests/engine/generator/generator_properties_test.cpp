// Properties of the generated maps for any image and any settings.

#include "byte_comparison.h"
#include "engine/base/channels.h"
#include "engine/base/generated_maps.h"
#include "imaging/pixels/pixel_image.h"
#include "model/normal_generator_settings.h"
#include "picture.h"
#include "plain_outputs.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

using namespace quarlin;
using namespace quarlin::fixtures;

namespace {

NormalOutputs mapsOf(const Picture& picture, const NormalGeneratorSettings& settings) {
    return plainOutputs(pixelImage(picture), settings);
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
        const NormalOutputs maps =
            mapsOf(constantPicture(picture.width, picture.height, picture.at(0, 0)), settings);
        EXPECT_EQ(pictureOf(maps[GeneratedMap::normal]),
                  constantPicture(picture.width, picture.height, {128, 128, 255, 255}));
    });
}

TEST(GeneratorProperties, AConstantImageStaysFlatUnderSmoothingButForTheRoundingNearTheEdges) {
    // The mean of equal numbers may differ from them in its last bit, and by another amount in the smaller
    // windows at the edges. A slope of zero is exactly a half (127.5), where the last bit decides between 127
    // and 128.
    forAnyImage([](const Picture& picture, const NormalGeneratorSettings& settings) {
        const NormalOutputs maps =
            mapsOf(constantPicture(picture.width, picture.height, picture.at(0, 0)), settings);
        const int margin = std::max(settings.smoothing, 0) + 1;
        for (int y = 0; y < picture.height; ++y) {
            for (int x = 0; x < picture.width; ++x) {
                const Rgba normal = pixelAt(maps[GeneratedMap::normal], x, y);
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
        const NormalOutputs maps =
            mapsOf(constantPicture(picture.width, picture.height, picture.at(0, 0)), settings);
        const auto expectConstant = [](const PixelImage& map) {
            EXPECT_EQ(pictureOf(map), constantPicture(static_cast<int>(map.width),
                                                      static_cast<int>(map.height), pixelAt(map, 0, 0)));
        };
        expectConstant(maps[GeneratedMap::height]);
        expectConstant(maps[GeneratedMap::roughness]);
        expectConstant(maps[GeneratedMap::gloss]);
        expectConstant(maps[GeneratedMap::metallic]);
        expectConstant(maps[GeneratedMap::orm]);
        EXPECT_EQ(pictureOf(maps[GeneratedMap::occlusion]),
                  constantPicture(picture.width, picture.height, {255, 255, 255, 255}));
    });
}

TEST(GeneratorProperties, FlippingGreenChangesOnlyGreen) {
    forAnyImage([](const Picture& picture, NormalGeneratorSettings settings) {
        const NormalOutputs before = mapsOf(picture, settings);
        settings.flipGreen = !settings.flipGreen;
        const NormalOutputs after = mapsOf(picture, settings);
        for (const GeneratedMap map : allCases<GeneratedMap>()) {
            if (map != GeneratedMap::normal) {
                EXPECT_EQ(before[map], after[map]) << rawValue(map).toStdString();
            }
        }
        for (std::size_t index = 0; index < before[GeneratedMap::normal].pixels.size(); ++index) {
            const int sum =
                before[GeneratedMap::normal].pixels[index] + after[GeneratedMap::normal].pixels[index];
            if (index % 4 == 1) {
                // The two fractions add up to 1, so their bytes add up to 255, or to 256 if both are halves
                // and are rounded up: a slope of zero is 128 in both directions.
                ASSERT_TRUE(sum == 255 || sum == 256) << index;
            } else {
                ASSERT_EQ(before[GeneratedMap::normal].pixels[index],
                          after[GeneratedMap::normal].pixels[index])
                    << index;
            }
        }
    });
}

TEST(GeneratorProperties, RoughnessStaysWithinItsBounds) {
    forAnyImage([](const Picture& picture, const NormalGeneratorSettings& settings) {
        const auto [low, high] = std::minmax(settings.roughnessMin, settings.roughnessMax);
        const NormalOutputs maps = mapsOf(picture, settings);
        for (std::size_t index = 0; index < maps[GeneratedMap::roughness].pixels.size(); index += 4) {
            ASSERT_GE(maps[GeneratedMap::roughness].pixels[index], byteFromUnit(low));
            ASSERT_LE(maps[GeneratedMap::roughness].pixels[index], byteFromUnit(high));
        }
    });
}

TEST(GeneratorProperties, GlossIsTheInverseOfRoughnessUpToOneStep) {
    forAnyImage([](const Picture& picture, const NormalGeneratorSettings& settings) {
        const NormalOutputs maps = mapsOf(picture, settings);
        for (std::size_t index = 0; index < maps[GeneratedMap::gloss].pixels.size(); index += 4) {
            const int sum =
                maps[GeneratedMap::roughness].pixels[index] + maps[GeneratedMap::gloss].pixels[index];
            ASSERT_TRUE(sum == 255 || sum == 256) << index;
        }
    });
}

TEST(GeneratorProperties, MetallicNeverExceedsItsStrength) {
    forAnyImage([](const Picture& picture, const NormalGeneratorSettings& settings) {
        const NormalOutputs maps = mapsOf(picture, settings);
        for (std::size_t index = 0; index < maps[GeneratedMap::metallic].pixels.size(); index += 4) {
            ASSERT_LE(maps[GeneratedMap::metallic].pixels[index], byteFromUnit(settings.metallicStrength));
        }
    });
}

TEST(GeneratorProperties, OcclusionNeverFallsBelowItsStrength) {
    forAnyImage([](const Picture& picture, const NormalGeneratorSettings& settings) {
        const NormalOutputs maps = mapsOf(picture, settings);
        for (std::size_t index = 0; index < maps[GeneratedMap::occlusion].pixels.size(); index += 4) {
            ASSERT_GE(maps[GeneratedMap::occlusion].pixels[index], byteFromUnit(1 - settings.aoStrength));
        }
    });
}

TEST(GeneratorProperties, NormalsPointOutOfTheSurface) {
    forAnyImage([](const Picture& picture, const NormalGeneratorSettings& settings) {
        const NormalOutputs maps = mapsOf(picture, settings);
        for (std::size_t index = 0; index < maps[GeneratedMap::normal].pixels.size(); index += 4) {
            ASSERT_GE(maps[GeneratedMap::normal].pixels[index + 2], 128);
        }
    });
}

/// How much the maps of a rotated picture may differ from the rotated maps: not at all without a blur, and by
/// one step with one, because the rotated window adds the same numbers in another order.
int blurTolerance(const NormalGeneratorSettings& settings) { return settings.smoothing < 1 ? 0 : 1; }

TEST(GeneratorProperties, MirroredInputMirrorsTheMapsWithRedInverted) {
    forAnyImage([](const Picture& picture, const NormalGeneratorSettings& settings) {
        const NormalOutputs maps = mapsOf(picture, settings);
        const NormalOutputs turned = mapsOf(mirrored(picture), settings);
        const int tolerance = blurTolerance(settings);
        const auto expectMirrored = [](const PixelImage& map, const PixelImage& other, int allowed) {
            EXPECT_TRUE(nearlySameBytes(mirrored(pictureOf(map)).bytes, other.pixels, allowed));
        };
        expectMirrored(maps[GeneratedMap::height], turned[GeneratedMap::height], tolerance);
        expectMirrored(maps[GeneratedMap::roughness], turned[GeneratedMap::roughness], tolerance);
        expectMirrored(maps[GeneratedMap::gloss], turned[GeneratedMap::gloss], tolerance);
        // The metal mask does not use the heights.
        expectMirrored(maps[GeneratedMap::metallic], turned[GeneratedMap::metallic], 0);
        // The cavity always uses the mean of one window.
        expectMirrored(maps[GeneratedMap::occlusion], turned[GeneratedMap::occlusion], 1);

        const Picture expected = mirrored(pictureOf(maps[GeneratedMap::normal]));
        for (std::size_t index = 0; index < expected.bytes.size(); ++index) {
            const int sum = expected.bytes[index] + turned[GeneratedMap::normal].pixels[index];
            const int difference = expected.bytes[index] - turned[GeneratedMap::normal].pixels[index];
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
        const NormalOutputs maps = mapsOf(picture, settings);
        const NormalOutputs turned = mapsOf(flipped(picture), settings);
        const int tolerance = blurTolerance(settings);
        EXPECT_TRUE(nearlySameBytes(flipped(pictureOf(maps[GeneratedMap::height])).bytes,
                                    turned[GeneratedMap::height].pixels, tolerance));
        EXPECT_TRUE(nearlySameBytes(flipped(pictureOf(maps[GeneratedMap::roughness])).bytes,
                                    turned[GeneratedMap::roughness].pixels, tolerance));
        EXPECT_TRUE(sameBytes(flipped(pictureOf(maps[GeneratedMap::metallic])).bytes,
                              turned[GeneratedMap::metallic].pixels));
        EXPECT_TRUE(nearlySameBytes(flipped(pictureOf(maps[GeneratedMap::occlusion])).bytes,
                                    turned[GeneratedMap::occlusion].pixels, 1));
        const Picture expected = flipped(pictureOf(maps[GeneratedMap::normal]));
        for (std::size_t index = 0; index < expected.bytes.size(); ++index) {
            const int sum = expected.bytes[index] + turned[GeneratedMap::normal].pixels[index];
            const int difference = expected.bytes[index] - turned[GeneratedMap::normal].pixels[index];
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
        const NormalOutputs upright = mapsOf(picture, settings);
        settings.invertHeight = true;
        const NormalOutputs inverted = mapsOf(picture, settings);
        for (std::size_t index = 0; index < upright[GeneratedMap::height].pixels.size(); ++index) {
            if (index % 4 != 3) {
                ASSERT_EQ(upright[GeneratedMap::height].pixels[index] +
                              inverted[GeneratedMap::height].pixels[index],
                          255);
            }
        }
    });
}

TEST(GeneratorProperties, TheSameCallGivesTheSameBytes) {
    forAnyImage([](const Picture& picture, const NormalGeneratorSettings& settings) {
        const NormalOutputs first = mapsOf(picture, settings);
        const NormalOutputs second = mapsOf(picture, settings);
        EXPECT_EQ(first, second);
    });
}

}  // namespace

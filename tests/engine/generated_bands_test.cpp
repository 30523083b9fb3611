// The maps as exports compute them, against the plain operations that define them.

#include "generated_bands.h"
#include "byte_comparison.h"
#include "each_instruction_set.h"
#include "random_generator_input.h"

#include <gtest/gtest.h>

using namespace quarlin;

namespace {

/// Every map from the plain operations, one after the other.
NormalOutputs plainOutputs(const PixelImage& source, const NormalGeneratorSettings& settings) {
    const HeightField heights = TextureProcessor::smoothedHeightValues(source, settings);
    GeneratedSurfaceMaps maps = TextureProcessor::generatedSurfaceMaps(source, heights, settings);
    return {.source = source,
            .height = TextureProcessor::heightImage(heights, source.width, source.height),
            .normal = TextureProcessor::normalImage(heights, source.width, source.height, settings),
            .roughness = std::move(maps.roughness),
            .gloss = std::move(maps.gloss),
            .metallic = std::move(maps.metallic),
            .occlusion = std::move(maps.occlusion),
            .orm = std::move(maps.orm)};
}

void expectSame(const NormalOutputs& expected, const NormalOutputs& actual) {
    EXPECT_TRUE(sameBytes(expected.source.pixels, actual.source.pixels));
    EXPECT_TRUE(sameBytes(expected.height.pixels, actual.height.pixels));
    EXPECT_TRUE(sameBytes(expected.normal.pixels, actual.normal.pixels));
    EXPECT_TRUE(sameBytes(expected.roughness.pixels, actual.roughness.pixels));
    EXPECT_TRUE(sameBytes(expected.gloss.pixels, actual.gloss.pixels));
    EXPECT_TRUE(sameBytes(expected.metallic.pixels, actual.metallic.pixels));
    EXPECT_TRUE(sameBytes(expected.occlusion.pixels, actual.occlusion.pixels));
    EXPECT_TRUE(sameBytes(expected.orm.pixels, actual.orm.pixels));
}

void expectTwin(int width, int height, std::uint64_t seed, const NormalGeneratorSettings& settings) {
    SCOPED_TRACE(testing::Message() << width << 'x' << height << " seed " << seed);
    const PixelImage source = sourceImage(width, height, seed);
    const NormalOutputs expected = plainOutputs(source, settings);
    forEachInstructionSet([&] { expectSame(expected, generateOutputs(source, settings)); });
}

TEST(GeneratedBands, EveryWidthMatchesThePlainOperations) {
    RandomSettings settings(11);
    for (int width = 1; width <= 70; ++width) {
        expectTwin(width, 1 + width % 5, static_cast<std::uint64_t>(width), settings.next());
        ASSERT_FALSE(HasFailure());
    }
}

TEST(GeneratedBands, EveryHeightMatchesThePlainOperations) {
    RandomSettings settings(12);
    for (int height = 1; height <= 140; ++height) {
        expectTwin(1 + height % 11, height, static_cast<std::uint64_t>(height), settings.next());
        ASSERT_FALSE(HasFailure());
    }
}

TEST(GeneratedBands, MorePassesThanABandIsHighReachAcrossBands) {
    NormalGeneratorSettings settings;
    settings.smoothing = 100;
    expectTwin(19, 200, 4, settings);
}

TEST(GeneratedBands, BandsOfAnyHeightOnAnyNumberOfThreadsAreTheSame) {
    RandomSettings random(13);
    const PixelImage source = sourceImage(45, 61, 3);
    const NormalGeneratorSettings settings = random.next();
    const GeneratedBand whole = generateBand(source, settings, {0, source.height});
    for (const unsigned threads : {1U, 2U, 3U, 8U}) {
        for (std::int64_t rowsPerBand = 1; rowsPerBand <= source.height; rowsPerBand += 4) {
            const RowBands bands(source.height, rowsPerBand);
            std::vector<GeneratedBand> made(static_cast<std::size_t>(bands.count()));
            forEachInParallel(
                bands.count(),
                [&](std::int64_t index) {
                    made[static_cast<std::size_t>(index)] = generateBand(source, settings, bands[index]);
                },
                threads);
            PixelBuffer normal;
            PixelBuffer roughness;
            PixelBuffer occlusion;
            for (const GeneratedBand& band : made) {
                normal.insert(normal.end(), band.normal.begin(), band.normal.end());
                roughness.insert(roughness.end(), band.roughness.begin(), band.roughness.end());
                occlusion.insert(occlusion.end(), band.occlusion.begin(), band.occlusion.end());
            }
            ASSERT_TRUE(sameBytes(whole.normal, normal)) << threads << ' ' << rowsPerBand;
            ASSERT_TRUE(sameBytes(whole.roughness, roughness)) << threads << ' ' << rowsPerBand;
            ASSERT_TRUE(sameBytes(whole.occlusion, occlusion)) << threads << ' ' << rowsPerBand;
        }
    }
}

}  // namespace

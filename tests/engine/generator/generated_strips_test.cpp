// Compares the maps as exports compute them with the plain operations that define them.

#include "engine/generator/generated_strips.h"
#include "byte_comparison.h"
#include "each_instruction_set.h"
#include "engine/base/generated_maps.h"
#include "engine/reference/height_field.h"
#include "engine/reference/normal_synthesis.h"
#include "engine/reference/surface_maps.h"
#include "imaging/base/parallel.h"
#include "imaging/pixels/pixel_image.h"
#include "model/normal_generator_settings.h"
#include "plain_outputs.h"
#include "random_generator_input.h"

#include <gtest/gtest.h>

using namespace quarlin;

namespace {

void expectSame(const NormalOutputs& expected, const NormalOutputs& actual) {
    for (const GeneratedMap map : allCases<GeneratedMap>()) {
        EXPECT_TRUE(sameBytes(expected[map].pixels, actual[map].pixels)) << rawValue(map).toStdString();
    }
}

void expectTwin(int width, int height, std::uint64_t seed, const NormalGeneratorSettings& settings) {
    SCOPED_TRACE(testing::Message() << width << 'x' << height << " seed " << seed);
    const PixelImage source = sourceImage(width, height, seed);
    const NormalOutputs expected = plainOutputs(source, settings);
    forEachInstructionSet([&] { expectSame(expected, generateOutputs(source, settings)); });
}

TEST(GeneratedStrips, EveryWidthMatchesThePlainOperations) {
    RandomSettings settings(11);
    for (int width = 1; width <= 70; ++width) {
        expectTwin(width, 1 + width % 5, static_cast<std::uint64_t>(width), settings.next());
        ASSERT_FALSE(HasFailure());
    }
}

TEST(GeneratedStrips, EveryHeightMatchesThePlainOperations) {
    RandomSettings settings(12);
    for (int height = 1; height <= 140; ++height) {
        expectTwin(1 + height % 11, height, static_cast<std::uint64_t>(height), settings.next());
        ASSERT_FALSE(HasFailure());
    }
}

TEST(GeneratedStrips, MorePassesThanAStripIsHighReachAcrossStrips) {
    NormalGeneratorSettings settings;
    settings.smoothing = 100;
    expectTwin(19, 200, 4, settings);
}

TEST(GeneratedStrips, StripsOfAnyHeightOnAnyNumberOfThreadsAreTheSame) {
    RandomSettings random(13);
    const PixelImage source = sourceImage(45, 61, 3);
    const NormalGeneratorSettings settings = random.next();
    const GeneratedStrip whole = generateStrip(RowWindow(source), settings, {0, source.height});
    for (const unsigned threads : {1U, 2U, 3U, 8U}) {
        for (std::int64_t rowsPerStrip = 1; rowsPerStrip <= source.height; rowsPerStrip += 4) {
            const RowStrips strips(source.height, rowsPerStrip);
            std::vector<GeneratedStrip> made(static_cast<std::size_t>(strips.count()));
            forEachInParallel(
                strips.count(),
                [&](std::int64_t index) {
                    made[static_cast<std::size_t>(index)] = generateStrip(RowWindow(source), settings, strips[index]);
                },
                threads);
            for (const GeneratedMap map : computedMaps) {
                PixelBuffer joined;
                for (const GeneratedStrip& strip : made) {
                    joined.insert(joined.end(), strip.maps[map].begin(), strip.maps[map].end());
                }
                ASSERT_TRUE(sameBytes(whole.maps[map], joined))
                    << rawValue(map).toStdString() << ' ' << threads << ' ' << rowsPerStrip;
            }
        }
    }
}

}  // namespace

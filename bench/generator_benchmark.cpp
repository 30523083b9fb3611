// The generator's bands on every instruction set of this machine, against the plain operations.

#include "generated_bands.h"
#include "measured.h"
#include "photograph.h"
#include "png_encoder.h"
#include "texture_processor.h"

#include <hwy/targets.h>

namespace quarlin::bench {

namespace {

void makePlainMaps(benchmark::State& state) {
    const PixelImage& source = largePhotograph();
    const NormalGeneratorSettings settings;
    for (auto _ : state) {
        const HeightField heights = TextureProcessor::smoothedHeightValues(source, settings);
        benchmark::DoNotOptimize(TextureProcessor::heightImage(heights, source.width, source.height));
        benchmark::DoNotOptimize(
            TextureProcessor::normalImage(heights, source.width, source.height, settings));
        benchmark::DoNotOptimize(TextureProcessor::generatedSurfaceMaps(source, heights, settings));
    }
    countBytes(state, source.pixels.size());
}

/// Makes the bands as an export does, without encoding them.
void makeBands(benchmark::State& state, std::int64_t target, unsigned threads) {
    const PixelImage& source = largePhotograph();
    const NormalGeneratorSettings settings;
    const RowBands bands = PngEncoder(source.width, source.height).bands();
    hwy::SetSupportedTargetsForTest(target);
    hwy::GetChosenTarget().Update(hwy::SupportedTargets());
    for (auto _ : state) {
        forEachInParallel(
            bands.count(),
            [&](std::int64_t band) { benchmark::DoNotOptimize(generateBand(source, settings, bands[band])); },
            threads);
    }
    hwy::SetSupportedTargetsForTest(0);
    hwy::GetChosenTarget().Update(hwy::SupportedTargets());
    countBytes(state, source.pixels.size());
}

[[maybe_unused]] const int registered = [] {
    measure("generator/plain", makePlainMaps);
    for (std::int64_t left = hwy::SupportedTargets() & (HWY_TARGETS); left != 0; left &= left - 1) {
        const std::int64_t target = left & -left;
        for (const unsigned threads : {1U, 2U}) {
            measure(std::string("generator/bands/") + hwy::TargetName(target) + "/threads_" +
                        std::to_string(threads),
                    [=](benchmark::State& state) { makeBands(state, target, threads); });
        }
    }
    return 0;
}();

}  // namespace

}  // namespace quarlin::bench

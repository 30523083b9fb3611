// The generator's strips on every instruction set of this machine, against the plain operations.

#include "engine/generator/generated_strips.h"
#include "engine/reference/height_field.h"
#include "engine/reference/normal_synthesis.h"
#include "engine/reference/surface_maps.h"
#include "imaging/base/parallel.h"
#include "imaging/pixels/pixel_image.h"
#include "imaging/png/png_encoder.h"
#include "measured.h"
#include "model/normal_generator_settings.h"
#include "photograph.h"

#include <hwy/targets.h>

namespace quarlin::bench {

namespace {

void makePlainMaps(benchmark::State& state) {
    const PixelImage& source = largePhotograph();
    const NormalGeneratorSettings settings;
    for (auto _ : state) {
        const reference::HeightField heights = reference::smoothedHeightValues(source, settings);
        benchmark::DoNotOptimize(reference::heightImage(heights, source.width, source.height));
        benchmark::DoNotOptimize(reference::normalImage(heights, source.width, source.height, settings));
        benchmark::DoNotOptimize(reference::generatedSurfaceMaps(source, heights, settings));
    }
    countBytes(state, source.pixels.size());
}

/// Makes the strips as an export does, without encoding them.
void makeStrips(benchmark::State& state, std::int64_t target, unsigned threads) {
    const PixelImage& source = largePhotograph();
    const NormalGeneratorSettings settings;
    const RowStrips strips = PngEncoder(source.width, source.height).strips();
    hwy::SetSupportedTargetsForTest(target);
    hwy::GetChosenTarget().Update(hwy::SupportedTargets());
    for (auto _ : state) {
        forEachInParallel(
            strips.count(),
            [&](std::int64_t strip) {
                benchmark::DoNotOptimize(generateStrip(RowWindow(source), settings, strips[strip]));
            },
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
            measure(std::string("generator/strips/") + hwy::TargetName(target) + "/threads_" +
                        std::to_string(threads),
                    [=](benchmark::State& state) { makeStrips(state, target, threads); });
        }
    }
    return 0;
}();

}  // namespace

}  // namespace quarlin::bench

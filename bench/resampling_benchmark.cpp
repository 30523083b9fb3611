#include "imaging/pixels/image_rows.h"
#include "imaging/pixels/pixel_image.h"
#include "imaging/pixels/resampled_rows.h"
#include "measured.h"
#include "photograph.h"

namespace quarlin::bench {

namespace {

void stretch(benchmark::State& state, std::int64_t from, std::int64_t to) {
    const PixelImage source = from == largePhotograph().width ? largePhotograph() : photograph(from);
    PixelBuffer output(pixelCount(to, to) * bytesPerPixel);
    for (auto _ : state) {
        ResampledRows(std::make_unique<ImageRows>(ImageView(source)), to, to).read(to, output.data());
        benchmark::ClobberMemory();
    }
    countBytes(state, output.size());
}

[[maybe_unused]] const int registered = [] {
    const auto add = [](std::int64_t from, std::int64_t to) {
        measure("resample/" + std::to_string(from) + "_to_" + std::to_string(to),
                [=](benchmark::State& state) { stretch(state, from, to); });
    };
    add(4096, 2048);
    add(4096, 512);
    add(512, 4096);
    return 0;
}();

}  // namespace

}  // namespace quarlin::bench

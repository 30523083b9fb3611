// The filters of PNG, with vectors and byte by byte, and the choice among them.

#include "imaging/pixels/pixel_image.h"
#include "imaging/png/filter.h"
#include "measured.h"
#include "photograph.h"

#include <utility>
#include <vector>

namespace quarlin::bench {

namespace {

using Apply = void (*)(PngFilter, std::size_t, std::span<const std::uint8_t>, std::span<const std::uint8_t>,
                       std::span<std::uint8_t>);

/// Calls `work(row, above)` for some rows of the photograph.
template <typename Work>
void forEachRow(benchmark::State& state, const Work& work) {
    const PixelImage& image = largePhotograph();
    const auto rowSize = static_cast<std::size_t>(image.width * bytesPerPixel);
    constexpr std::size_t rows = 256;
    for (auto _ : state) {
        for (std::size_t row = 1; row <= rows; ++row) {
            const std::uint8_t* place = image.pixels.data() + row * rowSize;
            work(std::span(place, rowSize), std::span(place - rowSize, rowSize));
        }
    }
    countBytes(state, rows * rowSize);
}

void applyFilter(benchmark::State& state, Apply apply, PngFilter filter, std::size_t pixelSize) {
    std::vector<std::uint8_t> residuals(static_cast<std::size_t>(largePhotograph().width * bytesPerPixel));
    forEachRow(state, [&](std::span<const std::uint8_t> row, std::span<const std::uint8_t> above) {
        apply(filter, pixelSize, row, above, residuals);
        benchmark::DoNotOptimize(residuals.data());
        benchmark::ClobberMemory();
    });
}

void chooseFilter(benchmark::State& state) {
    forEachRow(state, [](std::span<const std::uint8_t> row, std::span<const std::uint8_t> above) {
        benchmark::DoNotOptimize(choosePngFilter(bytesPerPixel, row, above));
    });
}

[[maybe_unused]] const int registered = [] {
    const std::vector<std::pair<const char*, PngFilter>> filters{{"sub", PngFilter::sub},
                                                                 {"up", PngFilter::up},
                                                                 {"average", PngFilter::average},
                                                                 {"paeth", PngFilter::paeth}};
    for (const auto& [name, filter] : filters) {
        for (const std::size_t pixelSize : {std::size_t{1}, std::size_t{4}}) {
            const std::string place = std::string(name) + "/pixel_size_" + std::to_string(pixelSize);
            const auto add = [&, chosen = filter](const std::string& form, Apply apply) {
                measure("filter/" + form + "/" + place,
                        [=](benchmark::State& state) { applyFilter(state, apply, chosen, pixelSize); });
            };
            add("fast", applyPngFilter);
            add("plain", plain::applyPngFilter);
        }
    }
    measure("filter/choose", chooseFilter);
    return 0;
}();

}  // namespace

}  // namespace quarlin::bench

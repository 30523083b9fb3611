// Filtering and deflating together, band by band on one thread and whole images on all, with the file's size.

#include "generated_bands.h"
#include "measured.h"
#include "parallel.h"
#include "photograph.h"
#include "png_encoder.h"

namespace quarlin::bench {

namespace {

/// The maps of some rows of the photograph that make one band of a PNG.
const GeneratedBand& maps() {
    static const GeneratedBand band = generateBand(largePhotograph(), NormalGeneratorSettings(), {0, 64});
    return band;
}

void reportSize(benchmark::State& state, const PngEncoder& png) {
    qsizetype size = png.beginning().size() + png.ending().size();
    for (std::int64_t band = 0; band < png.bands().count(); ++band) {
        size += png.chunk(band).size();
    }
    state.counters["file_bytes"] = static_cast<double>(size);
}

void encodeGrey(benchmark::State& state, PixelBuffer GeneratedBand::*map) {
    const PixelBuffer& grey = maps().*map;
    PngEncoder png(largePhotograph().width, maps().rows.count);
    for (auto _ : state) {
        png.encodeGreyBand(0, grey.data());
    }
    countBytes(state, grey.size() * bytesPerPixel);
    reportSize(state, png);
}

void encodeColour(benchmark::State& state, const std::uint8_t* rows) {
    const PixelImage& image = largePhotograph();
    PngEncoder png(image.width, maps().rows.count);
    for (auto _ : state) {
        png.encodeBand(0, rows);
    }
    countBytes(state, static_cast<std::size_t>(maps().rows.count * image.width * bytesPerPixel));
    reportSize(state, png);
}

void encodeWhole(benchmark::State& state) {
    const PixelImage& image = largePhotograph();
    for (auto _ : state) {
        PngEncoder png(image.width, image.height);
        const RowBands bands = png.bands();
        forEachInParallel(bands.count(), [&](std::int64_t band) {
            png.encodeBand(band, ImageView(image).row(bands[band].first));
        });
        state.PauseTiming();
        reportSize(state, png);
        state.ResumeTiming();
    }
    countBytes(state, image.pixels.size());
}

[[maybe_unused]] const int registered = [] {
    const auto grey = [](const char* name, PixelBuffer GeneratedBand::*map) {
        measure(std::string("encode/grey_band/") + name,
                [=](benchmark::State& state) { encodeGrey(state, map); });
    };
    grey("height", &GeneratedBand::height);
    grey("roughness", &GeneratedBand::roughness);
    grey("gloss", &GeneratedBand::gloss);
    grey("metallic", &GeneratedBand::metallic);
    grey("occlusion", &GeneratedBand::occlusion);
    measure("encode/band/photograph",
            [](benchmark::State& state) { encodeColour(state, largePhotograph().pixels.data()); });
    measure("encode/band/normal", [](benchmark::State& state) { encodeColour(state, maps().normal.data()); });
    measure("encode/band/orm", [](benchmark::State& state) { encodeColour(state, maps().orm.data()); });
    measure("encode/image/photograph", encodeWhole);
    return 0;
}();

}  // namespace

}  // namespace quarlin::bench

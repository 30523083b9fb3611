// Encodes strips on one thread and whole images on all cores, and reports the size of the file.

#include "engine/generator/generated_strips.h"
#include "imaging/base/parallel.h"
#include "imaging/base/row_strips.h"
#include "imaging/pixels/pixel_image.h"
#include "imaging/png/png_encoder.h"
#include "measured.h"
#include "model/normal_generator_settings.h"
#include "photograph.h"

#include <vector>

namespace quarlin::bench {

namespace {

/// The maps of the rows of the photograph that make one strip of a PNG.
const GeneratedStrip& maps() {
    static const GeneratedStrip strip =
        generateStrip(RowWindow(largePhotograph()), NormalGeneratorSettings(), {0, 64});
    return strip;
}

void reportSize(benchmark::State& state, const PngEncoder& png, const std::vector<PngStrip>& strips) {
    qsizetype size = png.beginning().size() + PngEncoder::ending(1).size();
    for (const PngStrip& strip : strips) {
        size += strip.chunk.size();
    }
    state.counters["file_bytes"] = static_cast<double>(size);
}

void encodeGray(benchmark::State& state, GeneratedMap map) {
    const PixelBuffer& gray = maps().maps[map];
    const PngEncoder png(largePhotograph().width, maps().rows.count);
    PngStrip strip;
    for (auto _ : state) {
        strip = png.encodeGrayStrip(0, gray.data());
    }
    countBytes(state, gray.size() * bytesPerPixel);
    reportSize(state, png, {strip});
}

void encodeColor(benchmark::State& state, const std::uint8_t* rows) {
    const PixelImage& image = largePhotograph();
    const PngEncoder png(image.width, maps().rows.count);
    PngStrip strip;
    for (auto _ : state) {
        strip = png.encodeStrip(0, rows);
    }
    countBytes(state, static_cast<std::size_t>(maps().rows.count * image.width * bytesPerPixel));
    reportSize(state, png, {strip});
}

void encodeWhole(benchmark::State& state) {
    const PixelImage& image = largePhotograph();
    const PngEncoder png(image.width, image.height);
    std::vector<PngStrip> strips(static_cast<std::size_t>(png.strips().count()));
    for (auto _ : state) {
        forEachInParallel(png.strips().count(), [&](std::int64_t strip) {
            strips[static_cast<std::size_t>(strip)] =
                png.encodeStrip(strip, ImageView(image).row(png.strips()[strip].first));
        });
    }
    countBytes(state, image.pixels.size());
    reportSize(state, png, strips);
}

[[maybe_unused]] const int registered = [] {
    for (const GeneratedMap map : computedMaps) {
        if (isGray(map)) {
            measure("encode/gray_strip/" + rawValue(map).toStdString(),
                    [=](benchmark::State& state) { encodeGray(state, map); });
        }
    }
    measure("encode/strip/photograph",
            [](benchmark::State& state) { encodeColor(state, largePhotograph().pixels.data()); });
    measure("encode/strip/normal",
            [](benchmark::State& state) { encodeColor(state, maps().maps[GeneratedMap::normal].data()); });
    measure("encode/strip/orm",
            [](benchmark::State& state) { encodeColor(state, maps().maps[GeneratedMap::orm].data()); });
    measure("encode/image/photograph", encodeWhole);
    return 0;
}();

}  // namespace

}  // namespace quarlin::bench

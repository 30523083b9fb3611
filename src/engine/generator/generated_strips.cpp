#include "engine/generator/generated_strips.h"

#include "imaging/base/parallel.h"
#include "imaging/pixels/pixel_image.h"
#include "model/normal_generator_settings.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <mutex>
#include <utility>
#include <vector>

namespace quarlin {

namespace {

std::int64_t smoothingPasses(const NormalGeneratorSettings& settings) {
    return std::max(0, settings.smoothing);
}

/// A run of rows of heights, each padded as the row operations require.
class HeightRows {
public:
    HeightRows(RowRange range, std::int64_t width)
        : m_range(range), m_stride(width + 2 * rowSlack), m_values(pixelCount(m_stride, range.count)) {
        // Vectors read beyond both ends of a row and drop the results; the row itself is written later.
        for (std::int64_t y = range.first; y < range.end(); ++y) {
            std::fill_n(row(y) - rowSlack, rowSlack, 0.0);
            std::fill_n(row(y) + width, rowSlack, 0.0);
        }
    }

    RowRange range() const { return m_range; }
    double* row(std::int64_t y) { return m_values.data() + (y - m_range.first) * m_stride + rowSlack; }
    const double* row(std::int64_t y) const {
        return m_values.data() + (y - m_range.first) * m_stride + rowSlack;
    }

private:
    RowRange m_range;
    std::int64_t m_stride;
    std::vector<double, UninitializedAllocator<double>> m_values;
};

/// Blurs row `y` of `heights`, whose range holds every row of its window.
void blurOneRow(const HeightRows& heights, std::int64_t y, std::int64_t imageHeight, std::int64_t width,
                double* blurred) {
    std::array<const double*, 3> window{};
    const RowRange rows = withMargin({y, 1}, 1, imageHeight);
    for (std::int64_t index = 0; index < rows.count; ++index) {
        window[static_cast<std::size_t>(index)] = heights.row(rows.first + index);
    }
    blurRow(std::span(window).first(static_cast<std::size_t>(rows.count)), width, blurred);
}

/// The smoothed heights of `rows`.
HeightRows smoothedHeights(const RowWindow& source, const NormalGeneratorSettings& settings, RowRange rows) {
    const std::int64_t passes = smoothingPasses(settings);
    HeightRows heights(withMargin(rows, passes, source.height()), source.width());
    for (std::int64_t y = heights.range().first; y < heights.range().end(); ++y) {
        heightRow(source.row(y), source.width(), settings.invertHeight, heights.row(y));
    }
    for (std::int64_t left = passes - 1; left >= 0; --left) {
        HeightRows blurred(withMargin(rows, left, source.height()), source.width());
        for (std::int64_t y = blurred.range().first; y < blurred.range().end(); ++y) {
            blurOneRow(heights, y, source.height(), source.width(), blurred.row(y));
        }
        heights = std::move(blurred);
    }
    return heights;
}

/// The strips that whole images are made in.
RowStrips stripsOf(const ImageView& source) {
    constexpr std::int64_t rowsPerStrip = 64;
    return {source.height, rowsPerStrip};
}

/// Spreads a gray map out to opaque RGBA.
void spreadGray(const PixelBuffer& gray, std::uint8_t* pixels) {
    for (const std::uint8_t value : gray) {
        pixels[0] = value;
        pixels[1] = value;
        pixels[2] = value;
        pixels[3] = 255;
        pixels += bytesPerPixel;
    }
}

/// Writes a computed map of `strip` to its place in the pixels of the whole image.
void placeMap(GeneratedMap map, const GeneratedStrip& strip, std::int64_t bytesPerRow, std::uint8_t* pixels) {
    const PixelBuffer& made = strip.maps[map];
    std::uint8_t* place = pixels + strip.rows.first * bytesPerRow;
    if (isGray(map)) {
        spreadGray(made, place);
    } else {
        std::copy(made.begin(), made.end(), place);
    }
}

}  // namespace

std::int64_t marginRows(const NormalGeneratorSettings& settings) { return smoothingPasses(settings) + 1; }

GeneratedStrip generateStrip(const RowWindow& source, const NormalGeneratorSettings& settings,
                             RowRange rows) {
    const std::int64_t width = source.width();
    GeneratedStrip strip{rows, {}};
    for (const GeneratedMap map : computedMaps) {
        strip.maps[map] = PixelBuffer(pixelCount(width * bytesPerPixelOf(map), rows.count));
    }
    const GeneratorFactors factors(settings);
    // Normals, contrast and cavity depend on the row above and the row below.
    const HeightRows heights = smoothedHeights(source, settings, withMargin(rows, 1, source.height()));
    HeightRows blurred({0, 1}, width);
    for (std::int64_t y = rows.first; y < rows.end(); ++y) {
        blurOneRow(heights, y, source.height(), width, blurred.row(0));
        GeneratedRow output;
        for (const GeneratedMap map : computedMaps) {
            output[map] = strip.maps[map].data() + (y - rows.first) * width * bytesPerPixelOf(map);
        }
        mapRow(source.row(y),
               {.above = heights.row(std::max<std::int64_t>(0, y - 1)),
                .row = heights.row(y),
                .below = heights.row(std::min(source.height() - 1, y + 1)),
                .blurred = blurred.row(0)},
               width, factors, output);
    }
    return strip;
}

NormalOutputs generateOutputs(const ImageView& source, const NormalGeneratorSettings& settings) {
    const std::size_t bytes = pixelCount(source.width, source.height) * bytesPerPixel;
    NormalOutputs outputs;
    outputs[GeneratedMap::source] = {source.width, source.height, {source.pixels, source.pixels + bytes}};
    for (const GeneratedMap map : computedMaps) {
        outputs[map] = {source.width, source.height, PixelBuffer(bytes)};
    }
    const RowStrips strips = stripsOf(source);
    forEachInParallel(strips.count(), [&](std::int64_t index) {
        const GeneratedStrip strip = generateStrip(RowWindow(source), settings, strips[index]);
        for (const GeneratedMap map : computedMaps) {
            placeMap(map, strip, source.bytesPerRow(), outputs[map].pixels.data());
        }
    });
    return outputs;
}

bool generateMap(GeneratedMap map, const ImageView& source, const NormalGeneratorSettings& settings,
                 std::uint8_t* pixels, const RowProgress& progress) {
    const RowStrips strips = stripsOf(source);
    std::mutex reporting;
    std::int64_t rowsDone = 0;
    std::atomic<bool> isStopped = false;
    forEachInParallel(strips.count(), [&](std::int64_t index) {
        if (isStopped) {
            return;
        }
        placeMap(map, generateStrip(RowWindow(source), settings, strips[index]), source.bytesPerRow(),
                 pixels);
        const std::lock_guard lock(reporting);
        rowsDone += strips[index].count;
        isStopped = isStopped || !progress(rowsDone);
    });
    return !isStopped;
}

}  // namespace quarlin

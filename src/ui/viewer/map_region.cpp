#include "ui/viewer/map_region.h"

#include "imaging/base/parallel.h"
#include "imaging/base/row_strips.h"
#include "imaging/pixels/image_view.h"
#include "imaging/pixels/premultiply.h"
#include "ui/viewer/map_pyramid.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <vector>

namespace quarlin {

namespace {

/// Where a pixel of the drawing takes its value from, along one axis: two neighbors in the source, and the
/// part of the second one in 256ths.
struct Tap {
    std::int64_t first = 0;
    std::int64_t second = 0;
    unsigned part = 0;
};

std::int64_t inside(std::int64_t index, std::int64_t count, bool repeats) {
    if (!repeats) {
        return std::clamp<std::int64_t>(index, 0, count - 1);
    }
    const std::int64_t rest = index % count;
    return rest < 0 ? rest + count : rest;
}

/// One axis of a region. `ratio`: pixels of the source for each pixel of the map.
struct Axis {
    double origin = 0;
    double scale = 1;
    double ratio = 1;
    std::int64_t count = 0;
    bool repeats = false;
    bool isSmooth = false;

    Tap tap(int pixel) const {
        const double middle = (origin + (pixel + 0.5) / scale) * ratio;
        if (!isSmooth) {
            const std::int64_t index = inside(static_cast<std::int64_t>(std::floor(middle)), count, repeats);
            return {index, index, 0};
        }
        const double left = std::floor(middle - 0.5);
        const auto index = static_cast<std::int64_t>(left);
        return {inside(index, count, repeats), inside(index + 1, count, repeats),
                static_cast<unsigned>((middle - 0.5 - left) * 256)};
    }

    std::vector<Tap> taps(int size) const {
        std::vector<Tap> taps;
        taps.reserve(static_cast<std::size_t>(size));
        for (int pixel = 0; pixel < size; ++pixel) {
            taps.push_back(tap(pixel));
        }
        return taps;
    }
};

void drawSharpRow(const std::uint8_t* row, const std::vector<Tap>& columns, std::uint8_t* out) {
    for (const Tap& column : columns) {
        std::memcpy(out, row + column.first * bytesPerPixel, bytesPerPixel);
        out += bytesPerPixel;
    }
}

void drawSmoothRow(const std::uint8_t* above, const std::uint8_t* below, unsigned lowerPart,
                   const std::vector<Tap>& columns, std::uint8_t* out) {
    for (const Tap& column : columns) {
        const std::int64_t left = column.first * bytesPerPixel;
        const std::int64_t right = column.second * bytesPerPixel;
        for (std::int64_t channel = 0; channel < bytesPerPixel; ++channel) {
            const unsigned upper =
                above[left + channel] * (256 - column.part) + above[right + channel] * column.part;
            const unsigned lower =
                below[left + channel] * (256 - column.part) + below[right + channel] * column.part;
            out[channel] =
                static_cast<std::uint8_t>((upper * (256 - lowerPart) + lower * lowerPart + 32768) >> 16U);
        }
        out += bytesPerPixel;
    }
}

/// Turns the pixels of a row into opaque grays of one channel.
void keepChannel(TextureChannel channel, int width, std::uint8_t* row) {
    const auto index = static_cast<std::size_t>(channel);
    for (int x = 0; x < width; ++x) {
        const std::uint8_t alpha = row[3];
        const std::uint8_t value =
            channel == TextureChannel::alpha ? alpha : unpremultiplied(row[index], alpha);
        std::fill_n(row, 3, value);
        row[3] = 255;
        row += bytesPerPixel;
    }
}

}  // namespace

QImage drawnRegion(const MapPyramid& map, const MapRegion& region) {
    QImage drawing(region.size, pixelFormat);
    if (drawing.isNull() || map.size().isEmpty()) {
        return drawing;
    }
    const MapPyramid::Level& level = map.levelFor(region.scale);
    const ImageView source(level.image);
    const bool isSmooth = region.scale < 1 || !map.isWhole();
    const std::vector<Tap> columns =
        Axis{region.origin.x(), region.scale, level.across, source.width, region.repeats, isSmooth}.taps(
            region.size.width());
    const Axis rows{region.origin.y(), region.scale, level.down, source.height, region.repeats, isSmooth};

    constexpr std::int64_t rowsPerStrip = 32;
    const RowStrips strips(region.size.height(), rowsPerStrip);
    const std::int64_t bytesPerRow = drawing.bytesPerLine();
    std::uint8_t* pixels = drawing.bits();
    forEachInParallel(strips.count(), [&](std::int64_t strip) {
        for (std::int64_t y = strips[strip].first; y < strips[strip].end(); ++y) {
            const Tap row = rows.tap(static_cast<int>(y));
            std::uint8_t* out = pixels + y * bytesPerRow;
            if (isSmooth) {
                drawSmoothRow(source.row(row.first), source.row(row.second), row.part, columns, out);
            } else {
                drawSharpRow(source.row(row.first), columns, out);
            }
            if (region.channel) {
                keepChannel(*region.channel, region.size.width(), out);
            }
        }
    });
    return drawing;
}

}  // namespace quarlin

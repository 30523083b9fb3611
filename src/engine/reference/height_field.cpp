#include "engine/reference/height_field.h"

#include "engine/base/channels.h"

#include <algorithm>

namespace quarlin::reference {

HeightField smoothedHeightValues(const PixelImage& image, const NormalGeneratorSettings& settings) {
    HeightField values(pixelCount(image.width, image.height));
    for (std::size_t index = 0; index < values.size(); ++index) {
        values[index] = grayscale(&image, index * bytesPerPixel, 0, settings.invertHeight) / 255.0;
    }
    for (int pass = 0; pass < settings.smoothing; ++pass) {
        values = boxBlur(values, image.width, image.height);
    }
    return values;
}

HeightField boxBlur(std::span<const double> values, std::int64_t width, std::int64_t height) {
    HeightField result(values.size());
    for (std::int64_t y = 0; y < height; ++y) {
        for (std::int64_t x = 0; x < width; ++x) {
            double sum = 0.0;
            double count = 0.0;
            for (std::int64_t yy = std::max<std::int64_t>(0, y - 1); yy <= std::min(height - 1, y + 1);
                 ++yy) {
                for (std::int64_t xx = std::max<std::int64_t>(0, x - 1); xx <= std::min(width - 1, x + 1);
                     ++xx) {
                    sum += values[static_cast<std::size_t>(yy * width + xx)];
                    count += 1.0;
                }
            }
            result[static_cast<std::size_t>(y * width + x)] = sum / count;
        }
    }
    return result;
}

PixelImage heightImage(std::span<const double> values, std::int64_t width, std::int64_t height) {
    PixelImage image = opaqueWhite(width, height);
    for (std::size_t index = 0; index < pixelCount(width, height); ++index) {
        writeGray(byteFromUnit(values[index]), image.pixels, index * bytesPerPixel);
    }
    return image;
}

double sampleHeight(std::span<const double> values, std::int64_t width, std::int64_t height, std::int64_t x,
                    std::int64_t y) {
    const std::int64_t column = std::max<std::int64_t>(0, std::min(width - 1, x));
    const std::int64_t row = std::max<std::int64_t>(0, std::min(height - 1, y));
    return values[static_cast<std::size_t>(row * width + column)];
}

}  // namespace quarlin::reference

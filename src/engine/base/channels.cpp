#include "engine/base/channels.h"

#include "imaging/pixels/luminance.h"

#include <algorithm>
#include <cmath>

namespace quarlin {

std::uint8_t byteFromUnit(double value) {
    const auto rounded = static_cast<std::int64_t>(std::round(value * 255.0));
    return static_cast<std::uint8_t>(std::max<std::int64_t>(0, std::min<std::int64_t>(255, rounded)));
}

std::uint8_t grayscale(const PixelImage* image, std::size_t offset, std::uint8_t fallback, bool inverted) {
    if (image == nullptr) {
        return fallback;
    }
    const std::uint8_t value = luminanceByte(image->pixels.data() + offset);
    return inverted ? static_cast<std::uint8_t>(255 - value) : value;
}

void writeGray(std::uint8_t value, std::span<std::uint8_t> pixels, std::size_t offset) {
    pixels[offset] = value;
    pixels[offset + 1] = value;
    pixels[offset + 2] = value;
    pixels[offset + 3] = 255;
}

double clamp(double value, double min, double max) { return std::max(min, std::min(max, value)); }

}  // namespace quarlin

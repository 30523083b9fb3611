#include "engine/material/normal_conditioning.h"

#include "imaging/pixels/pixel_image.h"

namespace quarlin {

void normalizeAlpha(std::span<std::uint8_t> pixels) {
    for (std::size_t index = 3; index < pixels.size(); index += bytesPerPixel) {
        pixels[index] = 255;
    }
}

void flipGreenChannel(std::span<std::uint8_t> pixels) {
    for (std::size_t index = 1; index < pixels.size(); index += bytesPerPixel) {
        pixels[index] = static_cast<std::uint8_t>(255 - pixels[index]);
    }
}

}  // namespace quarlin

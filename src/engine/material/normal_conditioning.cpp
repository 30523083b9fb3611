#include "engine/material/normal_conditioning.h"

namespace quarlin {

void normalizeAlpha(PixelImage& image) {
    for (std::size_t index = 3; index < image.pixels.size(); index += 4) {
        image.pixels[index] = 255;
    }
}

void flipGreenChannel(PixelImage& image) {
    for (std::size_t index = 1; index < image.pixels.size(); index += 4) {
        image.pixels[index] = static_cast<std::uint8_t>(255 - image.pixels[index]);
    }
}

}  // namespace quarlin

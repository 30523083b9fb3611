#include "painted_textures.h"

#include <algorithm>
#include <cmath>

namespace quarlin::fixtures {

QImage paintedTiles(int width, int height) {
    constexpr double tile = 64;
    constexpr double radius = 26;
    QImage image(width, height, QImage::Format_RGB32);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            const double dx = std::fmod(x, tile) - tile / 2 + 0.5;
            const double dy = std::fmod(y, tile) - tile / 2 + 0.5;
            const double rise = std::clamp((radius - std::sqrt(dx * dx + dy * dy)) / 8, 0.0, 1.0);
            const auto shade = [rise](int ground, int top) {
                return ground + static_cast<int>(std::lround(rise * (top - ground)));
            };
            image.setPixel(x, y, qRgb(shade(70, 205), shade(60, 120), shade(56, 84)));
        }
    }
    return image;
}

}  // namespace quarlin::fixtures

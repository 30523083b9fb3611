#include "check/normal_occlusion.h"

#include "imaging/pixels/image_view.h"
#include "imaging/pixels/pixel_image.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace quarlin {

namespace {

constexpr double middle = 127.5;

/// The slope that a component of a normal means, where a normal parallel to the surface has no finite one.
double slope(std::uint8_t component, std::uint8_t blue) {
    constexpr double flattest = 0.1;
    return ((component - middle) / middle) / std::max(flattest, (blue - middle) / middle);
}

}  // namespace

double hollowCorrelation(const QImage& normal, const QImage& orm) {
    if (normal.size() != orm.size()) {
        return 0;
    }
    const ImageView normals(normal);
    const ImageView packed(orm);
    // Occlusion reaches further than from one pixel to the next.
    constexpr std::int64_t reach = 2;
    const auto pixel = [](const ImageView& view, std::int64_t x, std::int64_t y) {
        return view.row(y) + x * bytesPerPixel;
    };
    double curvatures = 0;
    double shades = 0;
    double products = 0;
    for (std::int64_t y = reach; y + reach < normals.height; ++y) {
        for (std::int64_t x = reach; x + reach < normals.width; ++x) {
            const std::uint8_t* left = pixel(normals, x - reach, y);
            const std::uint8_t* right = pixel(normals, x + reach, y);
            const std::uint8_t* above = pixel(normals, x, y - reach);
            const std::uint8_t* below = pixel(normals, x, y + reach);
            const double curvature = slope(below[1], below[2]) - slope(above[1], above[2]) -
                                     slope(right[0], right[2]) + slope(left[0], left[2]);
            const double around = (*pixel(packed, x - reach, y) + *pixel(packed, x + reach, y) +
                                   *pixel(packed, x, y - reach) + *pixel(packed, x, y + reach)) /
                                  4.0;
            const double shade = *pixel(packed, x, y) - around;
            curvatures += curvature * curvature;
            shades += shade * shade;
            products += curvature * shade;
        }
    }
    // Below half a step per pixel, occlusion says nothing.
    constexpr double leastShade = 0.25;
    const auto count = static_cast<double>(pixelCount(normals.width, normals.height));
    return shades > leastShade * count && curvatures > 0 ? products / std::sqrt(curvatures * shades) : 0;
}

}  // namespace quarlin

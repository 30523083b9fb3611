#pragma once

#include "tiling_noise.h"

namespace quarlin::samples {

/// A color in sRGB values, 0...255, which may be out of range while colors are mixed.
struct Color {
    double red = 0;
    double green = 0;
    double blue = 0;
};

inline Color mix(const Color& a, const Color& b, double amount) {
    return {mix(a.red, b.red, amount), mix(a.green, b.green, amount), mix(a.blue, b.blue, amount)};
}

inline Color scaled(const Color& color, double factor) {
    return {color.red * factor, color.green * factor, color.blue * factor};
}

/// The properties of a wall at one point.
struct SurfacePoint {
    Color color;
    /// Height above the face of the bricks, in pixels.
    double height = 0;
    /// From 0 for a matt surface to 1 for a mirror.
    double gloss = 0;
    /// 1 for bare metal.
    double metallic = 0;
};

inline SurfacePoint mix(const SurfacePoint& a, const SurfacePoint& b, double amount) {
    return {mix(a.color, b.color, amount), mix(a.height, b.height, amount), mix(a.gloss, b.gloss, amount),
            mix(a.metallic, b.metallic, amount)};
}

}  // namespace quarlin::samples

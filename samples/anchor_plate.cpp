#include "anchor_plate.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace quarlin::samples {

namespace {

constexpr double plateRadius = 66;
constexpr double nutRadius = 15;

/// A place relative to the middle of a plate.
struct Offset {
    double x;
    double y;
    double distance() const { return std::hypot(x, y); }
};

/// The shortest way from `middle` to `position` in a texture that repeats.
double nearestWay(double position, double middle) {
    return std::remainder(position - middle, static_cast<double>(textureSize));
}

/// How far a place lies inside a hexagon, in pixels.
double depthInHexagon(const Offset& offset, double radius) {
    const double sector = std::numbers::pi / 3;
    const double angle = std::atan2(offset.y, offset.x) + 0.3;
    return radius - offset.distance() * std::cos(angle - sector * std::round(angle / sector));
}

/// The casting: a dished disc with a raised rim, six ribs and a nut in the middle. In pixels above its back.
double castingHeight(const Offset& offset) {
    const double distance = offset.distance();
    const double rim = std::exp(-std::pow((distance - plateRadius + 9) / 5.5, 2));
    const double sector = std::numbers::pi / 3;
    const double angle = std::atan2(offset.y, offset.x);
    const double acrossRib = std::abs(distance * std::sin(angle - sector * std::round(angle / sector)));
    const double rib = fade(7.5, 4.0, acrossRib) * fade(plateRadius, plateRadius - 12, distance);
    const double hub = fade(nutRadius + 17, nutRadius + 9, distance);
    const double body = 5 + 3 * fade(plateRadius, 0, distance) + 4 * std::max({rim, 0.8 * rib, 1.1 * hub});
    const double nut = 8 * fade(-1, 2.5, depthInHexagon(offset, nutRadius));
    const double boltEnd = 3.5 * fade(8.5, 6.5, distance);
    return (body + nut + boltEnd) * fade(plateRadius + 1, plateRadius - 3, distance);
}

/// How far the casting stands out from its surroundings at a place, in pixels.
double proudness(const Offset& offset) {
    constexpr double reach = 4;
    const double around =
        castingHeight({offset.x + reach, offset.y}) + castingHeight({offset.x - reach, offset.y}) +
        castingHeight({offset.x, offset.y + reach}) + castingHeight({offset.x, offset.y - reach});
    return castingHeight(offset) - around / 4;
}

SurfacePoint ironAt(const Offset& offset, double x, double y) {
    const double height = castingHeight(offset);
    const double patches = layeredNoise(x, y, 22, 22, 4, 500, 0.6);
    const double fine = layeredNoise(x, y, 110, 110, 3, 510, 0.65);
    const double corrosion = layeredNoise(x, y, 30, 30, 4, 520, 0.6);
    // What stands out is rubbed bare, what lies low rusts.
    const double proud = proudness(offset);
    const double bare = fade(-0.05, 0.45, 0.5 * proud + 0.55 * patches + 0.3 * fine);
    const double rust = fade(0.0, 0.5, -0.35 * proud + 0.7 * corrosion + 0.2 * fine);

    const SurfacePoint paint{scaled(Color{47, 48, 51}, 1 + 0.12 * patches), height + 0.25 * fine,
                             0.42 + 0.08 * patches, 0};
    const SurfacePoint metal{scaled(Color{143, 139, 134}, 1 + 0.1 * fine), height - 0.4 + 0.2 * fine,
                             0.58 + 0.1 * fine, 1};
    const Color rustColor = mix(Color{92, 48, 29}, Color{146, 82, 42}, fade(-0.6, 0.6, fine + 0.5 * patches));
    const SurfacePoint corroded{rustColor, height + 0.8 * fine, 0.12 + 0.04 * fine, 0.05};
    return mix(mix(paint, metal, bare), corroded, 0.93 * rust);
}

/// How much rust water has left at a place of the wall, 0...1.
double rustRun(const Offset& offset, double x, double y) {
    const double down = offset.y - 0.35 * plateRadius;
    const double spread = plateRadius * (0.75 + 0.12 * layeredNoise(x, y, 16, 6, 2, 530));
    const double streaks = fade(-0.55, 0.5, layeredNoise(x, y, 90, 4, 3, 540, 0.7));
    const double length = 230 + 150 * layeredNoise(x, y, 40, 1, 2, 550);
    return streaks * fade(spread, 0.35 * spread, std::abs(offset.x)) * fade(0, 25, down) *
           fade(length, 0, down);
}

}  // namespace

SurfacePoint withAnchorPlates(SurfacePoint wall, double x, double y) {
    static constexpr std::array<Offset, 2> middles{{{256, 299}, {768, 811}}};
    for (const Offset& middle : middles) {
        const Offset offset{nearestWay(x, middle.x), nearestWay(y, middle.y)};
        wall.color = mix(wall.color, Color{112, 60, 30}, 0.85 * rustRun(offset, x, y));
        // Dirt gathers and the wall stays dark around the casting.
        wall.color = scaled(wall.color, 1 - 0.35 * fade(plateRadius + 14, plateRadius, offset.distance()));
        wall = mix(wall, ironAt(offset, x, y), fade(plateRadius + 0.7, plateRadius - 0.9, offset.distance()));
    }
    return wall;
}

}  // namespace quarlin::samples

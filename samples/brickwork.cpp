#include "brickwork.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>

namespace quarlin::samples {

namespace {

constexpr int courses = 12;
constexpr int bricksPerCourse = 4;
constexpr double courseHeight = static_cast<double>(textureSize) / courses;
constexpr double brickLength = static_cast<double>(textureSize) / bricksPerCourse;
constexpr double jointWidth = 11.5;

/// One brick, and a place relative to its middle.
struct Place {
    std::int64_t course;
    std::int64_t brick;
    double x;
    double y;

    double random(std::uint32_t seed) const { return randomUnit(brick, course, seed); }
};

Place placeAt(double x, double y) {
    const auto course = static_cast<std::int64_t>(std::floor(y / courseHeight));
    const double shift = course % 2 == 0 ? 0 : brickLength / 2;
    const auto brick = static_cast<std::int64_t>(std::floor((x - shift) / brickLength));
    Place place{(course % courses + courses) % courses,
                (brick % bricksPerCourse + bricksPerCourse) % bricksPerCourse,
                x - shift - (static_cast<double>(brick) + 0.5) * brickLength,
                y - (static_cast<double>(course) + 0.5) * courseHeight};
    // No brick lies quite straight.
    const double angle = (place.random(11) - 0.5) * 0.016;
    const double turnedX = place.x - angle * place.y + (place.random(12) - 0.5) * 3.5;
    place.y = place.y + angle * place.x + (place.random(13) - 0.5) * 2.5;
    place.x = turnedX;
    return place;
}

/// How far inside the brick's outline a place lies, in pixels; negative in the mortar.
double depthInside(const Place& place, double x, double y) {
    const double halfLength = (brickLength - jointWidth) / 2 - 2.5 * place.random(14);
    const double halfHeight = (courseHeight - jointWidth) / 2 - 1.5 * place.random(15);
    const double radius = 4 + 5 * place.random(16);
    const double waviness =
        1.7 * layeredNoise(x, y, 24, 24, 2, 100) + 1.3 * layeredNoise(x, y, 90, 90, 2, 110);
    const double dx = std::abs(place.x) - halfLength + radius;
    const double dy = std::abs(place.y) - halfHeight + radius;
    const double outside = std::hypot(std::max(dx, 0.0), std::max(dy, 0.0));
    return radius - outside - std::min(std::max(dx, dy), 0.0) - waviness;
}

/// How much of the face has broken off, 0...1: along the edges of worn bricks, and at a corner of some.
double breakage(const Place& place, double depth, double x, double y) {
    const double roughness = layeredNoise(x, y, 40, 40, 4, 120, 0.6);
    const double wear = place.random(21);
    const double edgeReach = 3 + 15 * wear * wear * (0.4 + 0.6 * layeredNoise(x, y, 14, 14, 2, 130));
    const double edges = fade(edgeReach + 2, edgeReach - 2, depth + 9 * roughness);
    if (place.random(22) > 0.45) {
        return edges;
    }
    const double cornerX = (place.random(23) < 0.5 ? -1 : 1) * brickLength * 0.46;
    const double cornerY = (place.random(24) < 0.5 ? -1 : 1) * courseHeight * 0.42;
    const double reach = 12 + 30 * place.random(25);
    const double distance = std::hypot((place.x - cornerX) * 0.7, place.y - cornerY);
    return std::max(edges, fade(reach + 2, reach - 2, distance + 13 * roughness));
}

Color clayOf(const Place& place) {
    static constexpr std::array<Color, 9> clays{{{146, 86, 68},
                                                 {156, 95, 74},
                                                 {134, 76, 62},
                                                 {122, 67, 56},
                                                 {162, 106, 85},
                                                 {141, 91, 76},
                                                 {150, 99, 80},
                                                 {114, 73, 67},
                                                 {97, 70, 66}}};
    const auto index = static_cast<std::size_t>(place.random(31) * clays.size());
    return scaled(clays.at(index), 0.93 + 0.14 * place.random(32));
}

/// The face of an unbroken brick: clay with patches, sand and pits.
SurfacePoint faceAt(const Place& place, double x, double y) {
    const double patches = layeredNoise(x, y, 10, 12, 3, 200);
    const double mottling = layeredNoise(x, y, 48, 60, 4, 210, 0.62);
    const double grain = noise(x, y, 300, 300, 220);
    // The marks of the wire that cut the clay run along the brick.
    const double drag = layeredNoise(x, y, 20, 220, 2, 230) * (0.3 + 0.7 * place.random(33));

    SurfacePoint point;
    point.color = scaled(clayOf(place), 1 + 0.12 * patches + 0.19 * mottling + 0.09 * grain + 0.09 * drag);
    point.height =
        1.6 * (place.random(34) - 0.5) + 0.9 * patches + 0.9 * mottling + 0.22 * grain + 0.45 * drag;
    point.gloss = 0.24 + 0.07 * patches - 0.05 * mottling;

    // Where the kiln was hottest the clay has darkened and begun to glaze.
    const double burnt = 0.75 * fade(0.05, 0.75, patches + 1.1 * place.random(35) - 0.75);
    point.color = mix(point.color, Color{74, 54, 56}, burnt);
    point.gloss += 0.2 * burnt;

    // Grains of iron and of sand in the clay, few of them round.
    const double ragged = 0.45 * noise(x, y, 210, 230, 280);
    if (const Spot iron = nearestSpot(x, y, 100, 100, 240); iron.random > 0.9) {
        const double size = 0.12 + 3 * (iron.random - 0.9);
        point.color =
            mix(point.color, Color{58, 40, 39}, 0.6 * fade(size, 0.2 * size, iron.distance + ragged));
    }
    if (const Spot sand = nearestSpot(x, y, 170, 170, 250); sand.random > 0.93) {
        const double size = 0.2 + 4 * (sand.random - 0.93);
        point.color =
            mix(point.color, Color{190, 150, 122}, 0.4 * fade(size, 0.2 * size, sand.distance + ragged));
    }
    if (const Spot pit = nearestSpot(x, y, 56, 56, 260); pit.random > 0.72) {
        const double pitDepth = fade(0.1 + 0.22 * pit.random, 0.03, pit.distance + 0.1 * mottling);
        point.height -= 2.4 * pitDepth;
        point.color = scaled(point.color, 1 - 0.3 * pitDepth);
    }
    return point;
}

SurfacePoint brickAt(const Place& place, double depth, double x, double y) {
    SurfacePoint point = faceAt(place, x, y);
    const double broken = breakage(place, depth, x, y);
    const double fracture = layeredNoise(x, y, 70, 70, 3, 270, 0.6);
    const Color fresh = scaled(mix(clayOf(place), Color{178, 104, 76}, 0.45), 1 + 0.16 * fracture);
    point.color = mix(point.color, fresh, 0.7 * broken);
    point.height -= broken * (3.6 + 1.6 * fracture);
    point.gloss = mix(point.gloss, 0.14, broken);
    // The arris is rounded.
    point.height -= 5.5 * std::exp(-std::max(depth, 0.0) / 3.2);
    return point;
}

SurfacePoint mortarAt(double depth, double x, double y) {
    const double patches = layeredNoise(x, y, 9, 9, 4, 300);
    const double sand = layeredNoise(x, y, 150, 150, 2, 310, 0.8);
    const Spot grit = nearestSpot(x, y, 128, 128, 320);
    const double stone = grit.random > 0.6 ? fade(0.42, 0.2, grit.distance) : 0;

    SurfacePoint point;
    point.color =
        scaled(mix(Color{160, 151, 137}, Color{128, 119, 108}, fade(-0.6, 0.7, patches)), 1 + 0.17 * sand);
    point.color = mix(point.color, scaled(Color{142, 128, 110}, 0.7 + 0.6 * grit.random), 0.6 * stone);
    // Raked back from the bricks, and deepest along them.
    const double along = fade(-5, 0, depth);
    point.height = -8.2 + 2.2 * patches + 0.7 * sand + 0.9 * stone - 1.4 * along;
    // Where the pointing has crumbled the joint is open.
    const double crumbled = fade(0.42, 0.62, layeredNoise(x, y, 13, 13, 3, 330));
    point.height -= 3.5 * crumbled;
    point.color = scaled(point.color, 1 - 0.2 * crumbled - 0.1 * along);
    point.gloss = 0.1 + 0.03 * patches;
    return point;
}

/// What the years have left on bricks and mortar alike.
void weather(SurfacePoint& point, double depth, double x, double y) {
    // Smears of mortar over the edges of the bricks.
    const double smear =
        fade(0.15, 0.55, layeredNoise(x, y, 22, 26, 4, 400, 0.6)) * fade(26, 4, depth) * fade(0, 1, depth);
    point.color = mix(point.color, Color{158, 147, 132}, 0.55 * smear);
    point.height += 0.9 * smear;
    point.gloss = mix(point.gloss, 0.11, smear);

    // Salts that the drying wall brings to its face.
    const double bloom =
        fade(0.1, 0.8, layeredNoise(x, y, 5, 6, 5, 410, 0.6) + 0.25 * noise(x, y, 120, 120, 420));
    point.color = mix(point.color, Color{198, 188, 178}, 0.3 * bloom);

    // Soot runs down the wall.
    const double streaks = layeredNoise(x, y, 46, 3, 3, 430, 0.6) + 0.5 * layeredNoise(x, y, 6, 4, 3, 440);
    point.color = mix(point.color, Color{52, 46, 44}, 0.34 * fade(0.0, 0.9, streaks));
    const double damp = fade(0.1, 0.9, layeredNoise(x, y, 4, 3, 3, 450));
    point.color = scaled(point.color, 1 - 0.12 * damp);
    point.gloss += 0.05 * damp;
}

}  // namespace

SurfacePoint brickworkAt(double x, double y) {
    const Place place = placeAt(x, y);
    const double depth = depthInside(place, x, y);
    SurfacePoint point = mix(mortarAt(depth, x, y), brickAt(place, depth, x, y), fade(-1.4, 1.8, depth));
    weather(point, depth, x, y);
    return point;
}

}  // namespace quarlin::samples

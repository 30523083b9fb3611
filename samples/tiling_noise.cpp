#include "tiling_noise.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace quarlin::samples {

namespace {

std::int64_t wrapped(std::int64_t value, std::int64_t period) { return ((value % period) + period) % period; }

std::uint64_t bits(std::int64_t number) { return static_cast<std::uint64_t>(number); }

/// Spreads every bit of a number over all bits of the result.
std::uint64_t scattered(std::uint64_t number) {
    number += 0x9E3779B97F4A7C15U;
    number = (number ^ (number >> 30U)) * 0xBF58476D1CE4E5B9U;
    number = (number ^ (number >> 27U)) * 0x94D049BB133111EBU;
    return number ^ (number >> 31U);
}

/// The slope of the noise at a lattice point, a direction of length 1, times the way (`dx`, `dy`) from it.
double slope(std::int64_t column, std::int64_t row, double dx, double dy, std::uint32_t seed) {
    const double angle = 2 * std::numbers::pi * randomUnit(column, row, seed);
    return std::cos(angle) * dx + std::sin(angle) * dy;
}

/// A step from 0 to 1 whose first and second derivatives vanish at both ends.
double easing(double t) { return t * t * t * (t * (t * 6 - 15) + 10); }

}  // namespace

double randomUnit(std::int64_t x, std::int64_t y, std::uint32_t seed) {
    return static_cast<double>(scattered(scattered(scattered(seed) + bits(x)) + bits(y)) >> 11U) /
           9007199254740992.0;
}

double noise(double x, double y, int columns, int rows, std::uint32_t seed) {
    const double u = x * columns / textureSize;
    const double v = y * rows / textureSize;
    const double left = std::floor(u);
    const double top = std::floor(v);
    const double dx = u - left;
    const double dy = v - top;
    const auto corner = [&](int right, int down) {
        return slope(wrapped(static_cast<std::int64_t>(left) + right, columns),
                     wrapped(static_cast<std::int64_t>(top) + down, rows), dx - right, dy - down, seed);
    };
    const double above = mix(corner(0, 0), corner(1, 0), easing(dx));
    const double below = mix(corner(0, 1), corner(1, 1), easing(dx));
    return 1.5 * mix(above, below, easing(dy));
}

double layeredNoise(double x, double y, int columns, int rows, int octaves, std::uint32_t seed,
                    double persistence) {
    double sum = 0;
    double weight = 1;
    double weights = 0;
    for (int octave = 0; octave < octaves; ++octave) {
        sum += weight *
               noise(x, y, columns << octave, rows << octave, seed + static_cast<std::uint32_t>(octave));
        weights += weight;
        weight *= persistence;
    }
    return sum / weights * 1.4;
}

Spot nearestSpot(double x, double y, int columns, int rows, std::uint32_t seed) {
    const double u = x * columns / textureSize;
    const double v = y * rows / textureSize;
    const auto column = static_cast<std::int64_t>(std::floor(u));
    const auto row = static_cast<std::int64_t>(std::floor(v));
    Spot nearest{10, 0};
    for (std::int64_t r = row - 1; r <= row + 1; ++r) {
        for (std::int64_t c = column - 1; c <= column + 1; ++c) {
            const std::int64_t cellColumn = wrapped(c, columns);
            const std::int64_t cellRow = wrapped(r, rows);
            const double dx = static_cast<double>(c) + randomUnit(cellColumn, cellRow, seed) - u;
            const double dy = static_cast<double>(r) + randomUnit(cellColumn, cellRow, seed + 1) - v;
            if (const double distance = std::hypot(dx, dy); distance < nearest.distance) {
                nearest = {distance, randomUnit(cellColumn, cellRow, seed + 2)};
            }
        }
    }
    return nearest;
}

double fade(double from, double to, double value) {
    const double t = std::clamp((value - from) / (to - from), 0.0, 1.0);
    return t * t * (3 - 2 * t);
}

double mix(double a, double b, double amount) { return a + (b - a) * amount; }

}  // namespace quarlin::samples

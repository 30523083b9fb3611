#pragma once

#include <cstdint>

namespace quarlin::samples {

/// Side of the square textures in pixels, and the period of everything that is drawn.
inline constexpr int textureSize = 1024;

/// A pseudo-random number in 0...1 that only depends on the arguments.
double randomUnit(std::int64_t x, std::int64_t y, std::uint32_t seed);

/// Smooth noise in about -1...1 at the pixel (`x`, `y`) that repeats at the edges of the texture. The
/// texture has `columns` by `rows` bumps.
double noise(double x, double y, int columns, int rows, std::uint32_t seed);

/// `octaves` layers of `noise`, each with twice the bumps and `persistence` times the height of the one
/// before, scaled back to about -1...1.
double layeredNoise(double x, double y, int columns, int rows, int octaves, std::uint32_t seed,
                    double persistence = 0.5);

/// One of several scattered spots.
struct Spot {
    /// Distance from the given point to the center of the spot, in cells.
    double distance;
    /// A pseudo-random number in 0...1 for each spot.
    double random;
};

/// The nearest of the spots that are scattered over the texture, one per cell of a `columns` by `rows` grid.
Spot nearestSpot(double x, double y, int columns, int rows, std::uint32_t seed);

/// 0 up to `from`, 1 from `to` on, and smooth in between. `from` may be larger than `to`.
double fade(double from, double to, double value);

/// Linear interpolation from `a` at 0 to `b` at 1.
double mix(double a, double b, double amount);

}  // namespace quarlin::samples

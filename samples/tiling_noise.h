#pragma once

#include <cstdint>

namespace quarlin::samples {

/// Edge of the square textures in pixels. Everything drawn repeats with it.
inline constexpr int textureSize = 1024;

/// A number in 0...1 that depends on its arguments alone.
double randomUnit(std::int64_t x, std::int64_t y, std::uint32_t seed);

/// Smooth noise in about -1...1 at the pixel (`x`, `y`) that repeats at the edges of the texture. There are
/// `columns` by `rows` bumps to the texture.
double noise(double x, double y, int columns, int rows, std::uint32_t seed);

/// `octaves` layers of `noise`, each with twice the bumps and `persistence` times the height of the one
/// before, scaled back to about -1...1.
double layeredNoise(double x, double y, int columns, int rows, int octaves, std::uint32_t seed,
                    double persistence = 0.5);

/// A spot of a scattering.
struct Spot {
    /// From the place asked about to the spot's middle, in cells.
    double distance;
    /// A number in 0...1 of the spot's own.
    double random;
};

/// The nearest of the spots that are scattered over the texture, one per cell of a `columns` by `rows` grid.
Spot nearestSpot(double x, double y, int columns, int rows, std::uint32_t seed);

/// 0 at `from` and before, 1 at `to` and beyond, smooth between. `from` may be the larger.
double fade(double from, double to, double value);

/// From `a` at 0 to `b` at 1.
double mix(double a, double b, double amount);

}  // namespace quarlin::samples

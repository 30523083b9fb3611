#pragma once

#include <QImage>

#include <cstdint>

namespace quarlin {

/// Properties of a normal map as a whole. Its bytes represent components from -1 (0) to 1 (255).
struct NormalStatistics {
    /// The share of normals whose length differs from 1 by more than `lengthTolerance`, 0...1.
    double offLength = 0;
    /// The share of normals that point into the surface (blue below the middle), 0...1.
    double inward = 0;
    /// How well the map fits a surface if green points up (towards -1) or down (towards 1); 0 if it fits
    /// neither.
    ///
    /// A normal map of a surface with the heights h contains the slopes p = x / z = -dh/dx and q = y / z,
    /// which is dh/dy when green points up, y running down the image as rows do, and -dh/dy when it points
    /// down. The order in which h is differentiated does not matter, so dp/dy equals -dq/dx in the first case
    /// and dq/dx in the second. This is the correlation of the two over all pixels, whatever the surface
    /// looks like.
    double greenDirection = 0;
};

/// How far the length of a normal may be from 1. Rescaling shortens normals at sharp edges, and rounding to
/// bytes adds up to half a step; neither exceeds this tolerance on a large part of a map.
inline constexpr double lengthTolerance = 0.2;

/// The statistics of an image of `pixelFormat`.
NormalStatistics normalStatistics(const QImage& image);

}  // namespace quarlin

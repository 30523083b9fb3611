#pragma once

#include <QSize>

namespace quarlin {

// How large a map is drawn, in pixels of the screen for each pixel of the map.

/// The largest scale.
inline constexpr double largestScale = 16;

/// The scale at which `map` fits into `view`, both in pixels: enlarged at most by a whole number, so that its
/// pixels are all of one size.
double fittingScale(const QSize& map, const QSize& view);

/// The next larger or smaller power of two, between the scale that fits and the largest one.
double nextScale(double scale, double fitting);
double previousScale(double scale, double fitting);

}  // namespace quarlin

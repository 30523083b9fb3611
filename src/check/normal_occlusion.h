#pragma once

#include <QImage>

namespace quarlin {

/// How well a normal map and an occlusion map agree on where the surface is hollow, from -1 (they agree) to 1
/// (hollows of the one are bumps of the other); 0 if they say nothing about each other.
///
/// Of a surface with the heights h, a normal map contains the slopes p = x / z = -dh/dx and, as green points
/// up while y runs down the image, q = y / z = dh/dy. So dq/dy - dp/dx is the curvature, which is positive in
/// hollows. Occlusion is darker there: its red is less. If red and green of the normal map are both inverted,
/// the slopes still fit a surface, but one turned inside out. This is the correlation of curvature and
/// occlusion over all pixels, both taken as the difference from their surroundings.
double hollowCorrelation(const QImage& normal, const QImage& orm);

}  // namespace quarlin

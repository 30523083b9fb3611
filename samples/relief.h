#pragma once

#include <vector>

namespace quarlin::samples {

/// Heights in pixels, one per pixel of the texture, row by row from the top.
using Relief = std::vector<double>;

/// A direction of length 1: right, up and out of the surface.
struct Direction {
    double x;
    double y;
    double z;
};

/// The normal of the surface at a pixel. The relief repeats beyond the edges.
Direction directionAt(const Relief& relief, int x, int y);

/// How much of the sky is visible from each pixel of the relief, 0...1, given the heights near and far.
std::vector<double> skyOver(const Relief& relief);

}  // namespace quarlin::samples

#pragma once

#include "surface_point.h"

namespace quarlin::samples {

/// A weathered wall of bricks in running bond, at a pixel of the texture.
SurfacePoint brickworkAt(double x, double y);

}  // namespace quarlin::samples

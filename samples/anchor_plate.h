#pragma once

#include "surface_point.h"

namespace quarlin::samples {

/// Adds the wall's cast-iron anchor plates to `wall` at a pixel of the texture: once painted and now rusty,
/// with the rust that has run down from them.
SurfacePoint withAnchorPlates(SurfacePoint wall, double x, double y);

}  // namespace quarlin::samples

#pragma once

#include "surface_point.h"

namespace quarlin::samples {

/// Lays the cast-iron anchor plates of the wall, once painted and now rusting, over `wall` at a pixel of the
/// texture, together with the rust that has run down from them.
SurfacePoint withAnchorPlates(SurfacePoint wall, double x, double y);

}  // namespace quarlin::samples

#pragma once

#include <QImage>

namespace quarlin::fixtures {

/// A picture of round tiles on a ground, `width` x `height` pixels, whose every pixel is computed from its
/// place.
QImage paintedTiles(int width, int height);

}  // namespace quarlin::fixtures

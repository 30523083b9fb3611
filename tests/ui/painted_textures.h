#pragma once

#include <QImage>

namespace quarlin::fixtures {

/// A picture of round tiles on a ground, `width` x `height` pixels, each pixel computed from its
/// position.
QImage paintedTiles(int width, int height);

}  // namespace quarlin::fixtures

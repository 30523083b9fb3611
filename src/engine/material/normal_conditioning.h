#pragma once

#include "imaging/pixels/pixel_image.h"

namespace quarlin {

/// Sets every alpha byte to 255 and leaves the premultiplied color as it is.
void normalizeAlpha(PixelImage& image);

/// Replaces every green byte by 255 minus it.
void flipGreenChannel(PixelImage& image);

}  // namespace quarlin

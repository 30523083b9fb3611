#pragma once

#include "imaging/pixels/pixel_image.h"

namespace quarlin {

/// The surface maps estimated from one image, all of its size and opaque. The first four are gray; `orm`
/// holds occlusion, roughness and metallic in red, green and blue.
struct GeneratedSurfaceMaps {
    PixelImage roughness;
    PixelImage gloss;
    PixelImage metallic;
    PixelImage occlusion;
    PixelImage orm;

    bool operator==(const GeneratedSurfaceMaps&) const = default;
};

/// Every image of a generated set, all of the output size.
struct NormalOutputs {
    /// The source texture resized to the output size.
    PixelImage source;
    PixelImage height;
    PixelImage normal;
    PixelImage roughness;
    PixelImage gloss;
    PixelImage metallic;
    PixelImage occlusion;
    PixelImage orm;

    bool operator==(const NormalOutputs&) const = default;
};

}  // namespace quarlin

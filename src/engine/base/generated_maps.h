#pragma once

#include "imaging/pixels/pixel_image.h"
#include "model/enumeration.h"
#include "model/generated_set.h"

namespace quarlin {

/// The bytes that a pixel of `map` takes until the map is encoded.
constexpr std::int64_t bytesPerPixelOf(GeneratedMap map) { return isGray(map) ? 1 : bytesPerPixel; }

/// Every image of a generated set, all of the output size. The computed ones are opaque; `orm` holds
/// occlusion, roughness and metallic in red, green and blue.
struct NormalOutputs : PerCase<GeneratedMap, PixelImage> {
    bool operator==(const NormalOutputs&) const = default;
};

/// The `surfaceMaps` of an image. `source`, `height` and `normal` are not among them and stay empty.
struct GeneratedSurfaceMaps : PerCase<GeneratedMap, PixelImage> {
    bool operator==(const GeneratedSurfaceMaps&) const = default;
};

}  // namespace quarlin

#pragma once

#include "engine/reference/height_field.h"
#include "engine/reference/normal_synthesis.h"
#include "engine/reference/surface_maps.h"

namespace quarlin {

/// Every map of a set, each computed by the plain operation that defines it.
inline NormalOutputs plainOutputs(const PixelImage& source, const NormalGeneratorSettings& settings) {
    const reference::HeightField heights = reference::smoothedHeightValues(source, settings);
    NormalOutputs outputs{reference::generatedSurfaceMaps(source, heights, settings)};
    outputs[GeneratedMap::source] = source;
    outputs[GeneratedMap::height] = reference::heightImage(heights, source.width, source.height);
    outputs[GeneratedMap::normal] = reference::normalImage(heights, source.width, source.height, settings);
    return outputs;
}

}  // namespace quarlin

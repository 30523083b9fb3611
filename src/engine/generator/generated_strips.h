#pragma once

#include "engine/base/generated_maps.h"
#include "engine/generator/generator_rows.h"
#include "imaging/base/row_strips.h"
#include "imaging/pixels/image_view.h"
#include "imaging/pixels/pixel_image.h"
#include "model/normal_generator_settings.h"

namespace quarlin {

/// The maps of a run of rows. Gray maps have one byte a pixel, `normal` and `orm` have four.
struct GeneratedStrip {
    RowRange rows;
    PixelBuffer height;
    PixelBuffer normal;
    PixelBuffer roughness;
    PixelBuffer gloss;
    PixelBuffer metallic;
    PixelBuffer occlusion;
    PixelBuffer orm;
};

/// Computes the maps of `rows` of `source`: from heights through smoothing to the bytes while the rows are
/// still in the processor's cache, so that no field of the whole image is ever held. A strip reads as many
/// rows around it as its windows reach, and depends on nothing else: strips can be made in any order and on
/// any thread, and together they are what the operations of engine/reference make of the whole image, to
/// the byte.
GeneratedStrip generateStrip(const ImageView& source, const NormalGeneratorSettings& settings, RowRange rows);

/// The source and all maps of it as whole images, made on all cores.
NormalOutputs generateOutputs(const ImageView& source, const NormalGeneratorSettings& settings);

}  // namespace quarlin

#pragma once

#include "engine/base/generated_maps.h"
#include "engine/base/row_progress.h"
#include "engine/generator/generator_rows.h"
#include "imaging/base/row_strips.h"
#include "imaging/pixels/image_view.h"
#include "imaging/pixels/pixel_image.h"
#include "imaging/pixels/row_window.h"
#include "model/normal_generator_settings.h"

namespace quarlin {

/// The maps of a run of rows: one byte per pixel for a gray map, four for the others. `source` stays empty:
/// its rows are in the source already.
struct GeneratedStrip {
    RowRange rows;
    PerCase<GeneratedMap, PixelBuffer> maps;
};

/// Computes the maps of `rows` of `source`: from heights through smoothing to the bytes while the rows are
/// still in the processor's cache, so that no field of the whole image is ever held. A strip depends
/// only on its rows and on `marginRows` rows around them, which `source` must have: strips can be made in any
/// order and on any thread. Together they are, to the byte, what the operations of engine/reference make of
/// the whole image.
GeneratedStrip generateStrip(const RowWindow& source, const NormalGeneratorSettings& settings, RowRange rows);

/// The rows above and below a strip on which its maps depend: one for each smoothing pass, and one for the
/// neighbors of a pixel.
std::int64_t marginRows(const NormalGeneratorSettings& settings);

/// The source and all maps of it as whole images, made on all cores.
NormalOutputs generateOutputs(const ImageView& source, const NormalGeneratorSettings& settings);

/// Makes one of `computedMaps` as a whole image, on all cores. `pixels` has room for as many bytes as the
/// source. Returns false, with the image incomplete, if `progress` ended the work.
bool generateMap(GeneratedMap map, const ImageView& source, const NormalGeneratorSettings& settings,
                 std::uint8_t* pixels, const RowProgress& progress);

}  // namespace quarlin

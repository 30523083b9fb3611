#pragma once

#include "engine/material/material_sources.h"
#include "imaging/base/pixel_size.h"
#include "imaging/pixels/row_reader.h"
#include "model/conversion_settings.h"
#include "model/material_set.h"

#include <memory>

namespace quarlin {

/// The rows of an image of the set. A null pointer when the texture that the image is made from is not
/// loaded; the ORM image needs none. This function and the rows throw what the textures throw: if several
/// textures fail, the first of them in the order of the slots.
std::unique_ptr<RowReader> openMaterialImage(MaterialImage image, const MaterialSources& sources,
                                             const ConversionSettings& settings, PixelSize size);

}  // namespace quarlin

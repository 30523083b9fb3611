#include "engine/base/texture_processor_error.h"
#include "engine/material/material.h"
#include "engine/material/material_inputs.h"
#include "imaging/pixels/image_view.h"
#include "imaging/pixels/pixel_image.h"
#include "model/conversion_settings.h"
#include "model/texture_asset.h"
#include "model/texture_slot_kind.h"

namespace quarlin {

PixelImage makeORM(const TextureMap& textures, const ConversionSettings& settings, std::int64_t width,
                   std::int64_t height) {
    const MaterialInputs inputs(
        textures, {TextureSlotKind::occlusion, TextureSlotKind::roughness, TextureSlotKind::metallic},
        {width, height});
    const RowSource rows = ormRows(inputs, settings);
    if (!isUsableSize(width, height)) {
        throw TextureProcessorError::cannotCreateBitmap();
    }
    PixelImage image{width, height, {}};
    rows({0, height}, image.pixels);
    return image;
}

}  // namespace quarlin

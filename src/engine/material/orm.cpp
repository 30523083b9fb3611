#include "engine/material/material_inputs.h"
#include "engine/texture_processor.h"

namespace quarlin {

PixelImage TextureProcessor::makeORM(const TextureMap& textures, const ConversionSettings& settings,
                                     std::int64_t width, std::int64_t height) const {
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

#pragma once

#include "engine/base/row_progress.h"
#include "imaging/pixels/pixel_image.h"
#include "model/conversion_settings.h"
#include "model/export_result.h"
#include "model/material_set.h"
#include "model/previews.h"
#include "model/texture_asset.h"

#include <QImage>
#include <QUrl>

#include <cstdint>

namespace quarlin {

// The operations of `TextureProcessor` on the textures of a material. They are described there.

ExportResult exportMaterialSet(const TextureMap& textures, const ConversionSettings& settings,
                               const QUrl& parentDirectory);

OutputPreviews buildMaterialPreviews(const TextureMap& textures, const ConversionSettings& settings,
                                     std::int64_t longestSide);

QImage makeMaterialImage(MaterialImage image, const TextureMap& textures, const ConversionSettings& settings,
                         const RowProgress& progress);

PixelImage makeORM(const TextureMap& textures, const ConversionSettings& settings, std::int64_t width,
                   std::int64_t height);

}  // namespace quarlin

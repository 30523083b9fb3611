#pragma once

#include "imaging/base/pixel_size.h"
#include "model/conversion_settings.h"
#include "model/output_resolution.h"
#include "model/texture_asset.h"

#include <cstdint>

namespace quarlin {

/// The output size: square for a fixed resolution, else the base texture's own.
PixelSize resolvedOutputSize(const TextureAsset& base, const ConversionSettings& settings);
PixelSize resolvedOutputSize(std::int64_t baseWidth, std::int64_t baseHeight, OutputResolution resolution);

/// The size of the images of a material. Without a base color, the first texture takes its place; there must
/// be a texture.
PixelSize resolvedOutputSize(const TextureMap& textures, const ConversionSettings& settings);

/// The size of a preview: at most `longestSide` on the long side, the short side truncated but at least 1.
PixelSize previewSize(PixelSize size, std::int64_t longestSide);

}  // namespace quarlin

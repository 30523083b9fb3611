#pragma once

#include "engine/texture_processor.h"
#include "matching/material_input.h"
#include "model/export_result.h"
#include "model/texture_asset.h"

#include <functional>

namespace quarlin {

/// Opens the file of `input`; its pixels are loaded by the export. Throws `CommandFailure`.
TextureAsset openTexture(const TextureProcessor& processor, const MaterialInput& input);

/// Opens the files of `inputs`. Throws `CommandFailure` for the first slot, in their order, that can't be
/// loaded.
TextureMap openTextures(const TextureProcessor& processor, const MaterialInputPaths& inputs);

/// Exports a set of opened textures. Throws `CommandFailure`, also for a texture that can't be loaded.
ExportResult exportOpened(const std::function<ExportResult()>& work);

}  // namespace quarlin

#pragma once

#include "engine/texture_processor.h"
#include "matching/material_input.h"
#include "model/texture_asset.h"

namespace quarlin {

/// Loads the file of `input`. Throws `CommandFailure`.
TextureAsset loadTexture(const TextureProcessor& processor, const MaterialInput& input);

/// Loads the files of `inputs` at the same time. Throws `CommandFailure` for the first slot, in their order,
/// that can't be loaded.
TextureMap loadTextures(const TextureProcessor& processor, const MaterialInputPaths& inputs);

}  // namespace quarlin

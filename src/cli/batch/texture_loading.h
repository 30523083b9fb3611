#pragma once

#include "cli/batch/set_job.h"
#include "engine/texture_processor.h"
#include "matching/material_input.h"
#include "model/export_result.h"
#include "model/texture_asset.h"

#include <functional>
#include <vector>

namespace quarlin {

/// Opens the file of `input`; its pixels are loaded by the export. Throws `CommandFailure`.
TextureAsset openTexture(const TextureProcessor& processor, const MaterialInput& input);

/// Opens the files of `inputs`. With `keepsData`, the samples of all slots but the base color stay as they
/// are. Throws `CommandFailure` for the first slot, in their order, that can't be loaded.
TextureMap openTextures(const TextureProcessor& processor, const MaterialInputPaths& inputs, bool keepsData);

/// The textures of data, all but the base color, whose values a color profile or a gamma has changed.
std::vector<SetNote> conversionNotes(const TextureMap& textures);

/// Exports a set of opened textures. Throws `CommandFailure`, also for a texture that can't be loaded.
ExportResult exportOpened(const std::function<ExportResult()>& work);

}  // namespace quarlin

#pragma once

#include "engine/texture_processor.h"
#include "model/texture_asset.h"
#include "model/texture_map.h"
#include "model/texture_slot_kind.h"

#include <QString>

#include <map>

namespace quarlin {

/// Loads the file at `path`, as typed. Throws `CommandFailure`.
TextureAsset loadTexture(const TextureProcessor& processor, const QString& path);

/// Loads the files at `paths`, as typed, side by side; an empty path is no texture. Throws `CommandFailure`
/// for the first slot, in their order, that can't be loaded.
TextureMap loadTextures(const TextureProcessor& processor, const std::map<TextureSlotKind, QString>& paths);

}  // namespace quarlin

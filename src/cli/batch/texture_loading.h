#pragma once

#include "engine/texture_processor.h"
#include "model/texture_asset.h"
#include "model/texture_slot_kind.h"

#include <QString>

#include <map>

namespace quarlin {

/// Loads the file at `path`, which may be relative. Throws `CommandFailure`.
TextureAsset loadTexture(const TextureProcessor& processor, const QString& path);

/// Loads the files at `paths`, which may be relative, at the same time; slots with an empty path are skipped.
/// Throws `CommandFailure` for the first slot, in their order, that can't be loaded.
TextureMap loadTextures(const TextureProcessor& processor, const std::map<TextureSlotKind, QString>& paths);

}  // namespace quarlin

#pragma once

#include "cli/batch/set_job.h"
#include "engine/texture_processor.h"
#include "model/texture_asset.h"
#include "model/texture_slot_kind.h"

#include <QString>

#include <map>
#include <vector>

namespace quarlin {

/// Loads the file at `path`, which may be relative. Throws `CommandFailure`.
TextureAsset loadTexture(const TextureProcessor& processor, const QString& path);

/// Loads the files at `paths`, which may be relative, at the same time; slots with an empty path are skipped.
/// Throws `CommandFailure` for the first slot, in their order, that can't be loaded.
/// With `keepsData`, the samples of all slots but the base color stay as they are.
TextureMap loadTextures(const TextureProcessor& processor, const std::map<TextureSlotKind, QString>& paths,
                        bool keepsData);

/// The textures of data, all but the base color, whose values a color profile or a gamma has changed.
std::vector<SetNote> conversionNotes(const TextureMap& textures);

}  // namespace quarlin

#pragma once

#include "engine/texture_processor.h"
#include "model/export_result.h"
#include "model/texture_asset.h"
#include "model/texture_slot_kind.h"

#include <QString>

#include <functional>
#include <map>

namespace quarlin {

/// Opens the file at `path`, which may be relative; its pixels are loaded by the export. Throws
/// `CommandFailure`.
TextureAsset openTexture(const TextureProcessor& processor, const QString& path);

/// Opens the files at `paths`, which may be relative; slots with an empty path are skipped. Throws
/// `CommandFailure` for the first slot, in their order, that can't be loaded.
TextureMap openTextures(const TextureProcessor& processor, const std::map<TextureSlotKind, QString>& paths);

/// Exports a set of opened textures. Throws `CommandFailure`, also for a texture that can't be loaded.
ExportResult exportOpened(const std::function<ExportResult()>& work);

}  // namespace quarlin

#pragma once

#include "model/export_result.h"
#include "model/normal_generator_settings.h"
#include "model/previews.h"
#include "model/texture_asset.h"

#include <QUrl>

#include <optional>

namespace quarlin {

// The operations of `TextureProcessor` on the source of a generated set. They are described there.

ExportResult exportGeneratedSet(const std::optional<TextureAsset>& source,
                                const NormalGeneratorSettings& settings, const QUrl& parentDirectory);

NormalPreviews buildGeneratedPreviews(const std::optional<TextureAsset>& source,
                                      const NormalGeneratorSettings& settings);

}  // namespace quarlin

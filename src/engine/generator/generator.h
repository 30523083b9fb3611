#pragma once

#include "engine/base/row_progress.h"
#include "model/export_result.h"
#include "model/generated_set.h"
#include "model/normal_generator_settings.h"
#include "model/previews.h"
#include "model/texture_asset.h"

#include <QImage>
#include <QUrl>

#include <cstdint>
#include <optional>

namespace quarlin {

// The operations of `TextureProcessor` on the source of a generated set. They are described there.

ExportResult exportGeneratedSet(const std::optional<TextureAsset>& source,
                                const NormalGeneratorSettings& settings, const QUrl& parentDirectory);

NormalPreviews buildGeneratedPreviews(const std::optional<TextureAsset>& source,
                                      const NormalGeneratorSettings& settings, std::int64_t longestSide);

QImage makeGeneratedMap(GeneratedMap map, const TextureAsset& source, const NormalGeneratorSettings& settings,
                        const RowProgress& progress);

}  // namespace quarlin

#pragma once

#include "model/conversion_settings.h"
#include "model/normal_generator_settings.h"
#include "model/normal_output_names.h"
#include "model/output_names.h"
#include "model/texture_asset.h"

#include <QByteArray>
#include <QString>

namespace quarlin {

// The glTF 2.0 documents (UTF-8 JSON, keys in ascending order) and the notes of both sets.

/// The glTF document of a material set; `hasNormal`: its normal map was exported.
QByteArray makeGLTFData(const OutputNames& names, const ConversionSettings& settings, bool hasNormal);

/// The notes of a material set.
QString makeNotes(const OutputNames& names, const ConversionSettings& settings, const TextureMap& textures,
                  bool hasNormal);

/// The glTF document of a generated set. It always names the ORM file.
QByteArray makeGeneratedGLTFData(const NormalOutputNames& names, const NormalGeneratorSettings& settings);

/// The notes of a generated set.
QString makeNormalNotes(const NormalOutputNames& names, const NormalGeneratorSettings& settings,
                        const TextureAsset& source);

}  // namespace quarlin

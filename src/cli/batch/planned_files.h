#pragma once

#include "model/conversion_settings.h"
#include "model/normal_generator_settings.h"

#include <QStringList>

namespace quarlin {

/// The files that an export with these settings writes, in writing order. `hasNormal` says whether the
/// material has a normal map.
QStringList plannedFiles(const ConversionSettings& settings, bool hasNormal);
QStringList plannedFiles(const NormalGeneratorSettings& settings);

}  // namespace quarlin

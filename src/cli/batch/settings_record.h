#pragma once

#include "model/conversion_settings.h"
#include "model/normal_generator_settings.h"

#include <QByteArray>

namespace quarlin {

/// Every setting as one line of text, which differs for settings that differ.
QByteArray settingsRecord(const ConversionSettings& settings);
QByteArray settingsRecord(const NormalGeneratorSettings& settings);

}  // namespace quarlin

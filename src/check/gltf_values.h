#pragma once

#include "check/finding.h"

#include <QJsonObject>

namespace quarlin {

/// The findings on the values of a glTF material: its alpha mode, its factors, and the texture coordinates of
/// its textures. `document` is the name of the file.
Findings checkValues(const QJsonObject& material, const QString& document);

/// The findings on the extensions that a glTF document requires.
Findings checkExtensions(const QJsonObject& gltf, const QString& document);

}  // namespace quarlin

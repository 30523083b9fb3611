#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

namespace quarlin {

/// The names in a glTF material document.
struct GltfMaterial {
    QString materialName;
    /// File names, used as relative URIs.
    QString baseColor;
    QString orm;
    std::optional<QString> normal;
};

/// A glTF 2.0 document that holds one double-sided metallic-roughness material and no geometry: UTF-8 JSON,
/// indented by two spaces, keys in ascending order, without a line feed at the end.
QByteArray gltfMaterial(const GltfMaterial& material);

}  // namespace quarlin

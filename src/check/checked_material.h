#pragma once

#include "check/finding.h"

#include <QString>
#include <QUrl>

#include <optional>
#include <vector>

namespace quarlin {

/// A material as an uploader sees it: which image is used for what. An image is the name of a file in the
/// set's folder; the file may be missing.
struct CheckedMaterial {
    /// The .gltf that describes it; empty if only the file names do.
    QString document;
    QString name;
    std::optional<QString> baseColor;
    std::optional<QString> metallicRoughness;
    std::optional<QString> occlusion;
    std::optional<QString> normal;
    /// Whether alpha is ignored.
    bool isOpaque = true;
};

/// The materials of a set, and the findings on how they are described.
struct CheckedSet {
    std::vector<CheckedMaterial> materials;
    Findings findings;
};

/// Reads the materials of a glTF 2.0 document, the file `name` in `folder`.
CheckedSet readGLTF(const QUrl& folder, const QString& name);

/// The set in `folder`, read from its .gltf documents, or if there are none, from the names of its files.
CheckedSet readSet(const QUrl& folder);

}  // namespace quarlin

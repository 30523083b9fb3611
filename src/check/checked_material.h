#pragma once

#include "check/finding.h"

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QUrl>

#include <map>
#include <optional>
#include <vector>

namespace quarlin {

/// A material as an uploader sees it: which image is used for what. An image is the name of a file in the
/// set's folder, which may be missing, or of an image in its document.
struct CheckedMaterial {
    /// The .gltf that describes it; empty if only the file names do.
    QString document;
    QString name;
    std::optional<QString> baseColor;
    std::optional<QString> metallicRoughness;
    std::optional<QString> occlusion;
    std::optional<QString> normal;
    std::optional<QString> emissive = {};
    /// Whether alpha is ignored.
    bool isOpaque = true;
    /// Whether the document multiplies these channels of the ORM image by zero.
    bool isRoughnessOff = false;
    bool isMetallicOff = false;
};

/// The materials of a set, and the findings on how they are described.
struct CheckedSet {
    std::vector<CheckedMaterial> materials;
    Findings findings;
    /// The content of the images that are part of a document, by the names that `materials` has for them.
    std::map<QString, QByteArray> embedded = {};
};

/// Whether the file `name` is a glTF document by its extension: .gltf or .glb.
bool isDocument(const QString& name);

/// Whether files with these names are those of a set.
bool hasSet(const QStringList& names);

/// Reads the materials of a glTF 2.0 document, the file `name` in `folder`.
CheckedSet readGLTF(const QUrl& folder, const QString& name);

/// The set in `folder`, read from its glTF documents, or if there are none, from the names of its files.
CheckedSet readSet(const QUrl& folder);

}  // namespace quarlin

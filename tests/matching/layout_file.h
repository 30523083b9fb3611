#pragma once

#include <QMap>
#include <QString>
#include <QStringList>

#include <vector>

namespace quarlin::tests {

/// A folder of textures as a library ships it, and what is expected of it; read from a text file.
///
/// A line "[NAME] FLAG..." begins a material, and "[unused]" the files that no material uses. The lines below
/// it are "FILE -> WHAT": the slots that the file fills, each with the letter of a channel if it is one, or
/// the identifier of the reason. Lines that begin with "#" describe the layout.
struct LayoutFile {
    struct Material {
        QString name;
        /// "gloss", "directx" and "refused".
        QStringList flags;
        /// "baseColor" or "roughness:g" to the file.
        QMap<QString, QString> inputs;
    };

    QString name;
    std::vector<Material> materials;
    /// The reason by file.
    QMap<QString, QString> unused;
    /// What the file says of each file.
    QMap<QString, QString> lines;

    /// Every file of the folder.
    QStringList files() const;
};

/// The layouts in the folder of this test's sources, by name.
std::vector<LayoutFile> layoutFiles();

}  // namespace quarlin::tests

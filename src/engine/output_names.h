#pragma once

#include <QString>

namespace quarlin {

/// The file names of one material set, without folder.
struct OutputNames {
    /// The cleaned material name that every file name begins with.
    QString materialName;

    QString baseColor() const { return materialName + QStringLiteral("_BaseColor.png"); }
    QString orm() const { return materialName + QStringLiteral("_ORM.png"); }
    QString normal() const { return materialName + QStringLiteral("_Normal.png"); }
    QString gltf() const { return materialName + QStringLiteral(".gltf"); }
    QString notes() const { return materialName + QStringLiteral("_SL_PBR_notes.txt"); }
};

}  // namespace quarlin

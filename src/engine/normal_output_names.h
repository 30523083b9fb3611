#pragma once

#include <QString>

namespace quarlin {

/// The file names of one generated map set, without folder.
struct NormalOutputNames {
    /// The cleaned material name that every file name begins with.
    QString materialName;

    QString baseColor() const { return materialName + QStringLiteral("_basecolor.png"); }
    QString normal() const { return materialName + QStringLiteral("_normal.png"); }
    QString height() const { return materialName + QStringLiteral("_height.png"); }
    QString roughness() const { return materialName + QStringLiteral("_roughness.png"); }
    QString gloss() const { return materialName + QStringLiteral("_gloss.png"); }
    QString metallic() const { return materialName + QStringLiteral("_metallic.png"); }
    QString occlusion() const { return materialName + QStringLiteral("_ao.png"); }
    QString orm() const { return materialName + QStringLiteral("_orm.png"); }
    QString gltf() const { return materialName + QStringLiteral(".gltf"); }
    QString notes() const { return materialName + QStringLiteral("_maps_notes.txt"); }
};

}  // namespace quarlin

#pragma once

#include <QString>

namespace quarlin {

using namespace Qt::StringLiterals;

/// The file names of one generated map set, without folder.
struct NormalOutputNames {
    /// The cleaned material name that every file name begins with.
    QString materialName;

    QString baseColor() const { return materialName + u"_basecolor.png"_s; }
    QString normal() const { return materialName + u"_normal.png"_s; }
    QString height() const { return materialName + u"_height.png"_s; }
    QString roughness() const { return materialName + u"_roughness.png"_s; }
    QString gloss() const { return materialName + u"_gloss.png"_s; }
    QString metallic() const { return materialName + u"_metallic.png"_s; }
    QString occlusion() const { return materialName + u"_ao.png"_s; }
    QString orm() const { return materialName + u"_orm.png"_s; }
    QString gltf() const { return materialName + u".gltf"_s; }
    QString notes() const { return materialName + u"_maps_notes.txt"_s; }
};

}  // namespace quarlin

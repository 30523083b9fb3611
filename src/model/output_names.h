#pragma once

#include <QString>

namespace quarlin {

using namespace Qt::StringLiterals;

/// The file names of one material set, without folder.
struct OutputNames {
    /// The cleaned material name that every file name begins with.
    QString materialName;

    QString baseColor() const { return materialName + u"_BaseColor.png"_s; }
    QString orm() const { return materialName + u"_ORM.png"_s; }
    QString normal() const { return materialName + u"_Normal.png"_s; }
    QString gltf() const { return materialName + u".gltf"_s; }
    QString notes() const { return materialName + u"_SL_PBR_notes.txt"_s; }
};

}  // namespace quarlin

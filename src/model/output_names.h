#pragma once

#include "model/material_set.h"

#include <QString>

namespace quarlin {

/// The file names of one material set, without folder.
struct OutputNames {
    /// The cleaned material name that every file name begins with.
    QString materialName;

    QString operator[](MaterialFile file) const { return fileName(materialName, file); }

    QString baseColor() const { return (*this)[MaterialFile::baseColor]; }
    QString orm() const { return (*this)[MaterialFile::orm]; }
    QString normal() const { return (*this)[MaterialFile::normal]; }
    QString gltf() const { return (*this)[MaterialFile::gltf]; }
    QString notes() const { return (*this)[MaterialFile::notes]; }
};

}  // namespace quarlin

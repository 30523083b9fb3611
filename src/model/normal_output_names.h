#pragma once

#include "model/generated_set.h"

#include <QString>

namespace quarlin {

/// The file names of one generated map set, without folder.
struct NormalOutputNames {
    /// The cleaned material name that every file name begins with.
    QString materialName;

    QString operator[](GeneratedFile file) const { return fileName(materialName, file); }

    QString baseColor() const { return (*this)[GeneratedFile::baseColor]; }
    QString normal() const { return (*this)[GeneratedFile::normal]; }
    QString height() const { return (*this)[GeneratedFile::height]; }
    QString roughness() const { return (*this)[GeneratedFile::roughness]; }
    QString gloss() const { return (*this)[GeneratedFile::gloss]; }
    QString metallic() const { return (*this)[GeneratedFile::metallic]; }
    QString occlusion() const { return (*this)[GeneratedFile::occlusion]; }
    QString orm() const { return (*this)[GeneratedFile::orm]; }
    QString gltf() const { return (*this)[GeneratedFile::gltf]; }
    QString notes() const { return (*this)[GeneratedFile::notes]; }
};

}  // namespace quarlin

#pragma once

#include "model/output_resolution.h"

#include <QString>

namespace quarlin {

/// The user's choices for one material set. Nothing is clamped here: the controls that edit the
/// fields have the ranges.
struct ConversionSettings {
    /// The default name. It also replaces a name of which nothing is left once it is cleaned.
    static QString defaultMaterialName();

    /// Base name of the exported files and of the material.
    QString materialName = defaultMaterialName();
    /// Size of the exported maps.
    OutputResolution outputResolution = OutputResolution::px2048;
    /// Inverts the normal map's green channel, for DirectX-style sources.
    bool flipNormalGreen = false;
    /// The texture of the roughness slot is gloss (smoothness); the export inverts it.
    bool roughnessInputIsGloss = false;
    /// Occlusion when no occlusion texture is loaded, 0...1.
    double defaultOcclusion = 1.0;
    /// Roughness when no roughness texture is loaded, 0...1.
    double defaultRoughness = 0.65;
    /// Metallic when no metallic texture is loaded, 0...1.
    double defaultMetallic = 0.0;
    /// Also write the glTF material document.
    bool exportGLTF = true;
    /// Also write the notes text.
    bool exportNotes = true;

    /// `materialName` as file names and documents use it.
    QString safeMaterialName() const;

    bool operator==(const ConversionSettings&) const = default;
};

/// Whether both give the same images: they may differ in the name and in which documents are written.
bool haveSameImages(const ConversionSettings& a, const ConversionSettings& b);

}  // namespace quarlin

#pragma once

#include "model/output_resolution.h"

#include <QString>

namespace quarlin {

/// The user's choices for one material set. Nothing is clamped here: the ranges belong to the controls that
/// edit the fields.
struct ConversionSettings {
    /// The name that a fresh value carries, and that stands in for a name of which no character can be kept.
    static QString defaultMaterialName();

    /// Base name of the exported files and of the material.
    QString materialName = defaultMaterialName();
    /// Size of the exported maps.
    OutputResolution outputResolution = OutputResolution::px2048;
    /// Inverts the normal map's green channel, for DirectX-style sources.
    bool flipNormalGreen = false;
    /// The roughness slot holds gloss (smoothness), which is inverted.
    bool roughnessInputIsGloss = false;
    /// Occlusion where no occlusion texture is loaded, 0...1.
    double defaultOcclusion = 1.0;
    /// Roughness where no roughness texture is loaded, 0...1.
    double defaultRoughness = 0.65;
    /// Metallic where no metallic texture is loaded, 0...1.
    double defaultMetallic = 0.0;
    /// Also write the glTF material document.
    bool exportGLTF = true;
    /// Also write the notes text.
    bool exportNotes = true;

    /// `materialName` as file names and documents use it.
    QString safeMaterialName() const;

    bool operator==(const ConversionSettings&) const = default;
};

}  // namespace quarlin

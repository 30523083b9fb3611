#pragma once

#include "model/output_resolution.h"

#include <QString>

namespace quarlin {

/// The user's choices for one generated map set. Nothing is clamped here: the controls that
/// edit the fields have the ranges, and the engine clamps only what its formulas do.
struct NormalGeneratorSettings {
    /// The default name. It also replaces a name of which nothing is left once it is cleaned.
    static QString defaultMaterialName();

    /// Base name of the exported files.
    QString materialName = defaultMaterialName();
    /// Size of the generated maps.
    OutputResolution outputResolution = OutputResolution::px2048;
    /// Gradient multiplier of the normal map; the engine uses at least 0.05.
    double strength = 3.0;
    /// Number of 3 x 3 blur passes over the height field; below 1 means none.
    int smoothing = 1;
    /// Reads the source inverted: dark is high.
    bool invertHeight = false;
    /// Flips the sign of the green (Y) normal component.
    bool flipGreen = false;
    /// Bounds of the generated roughness, 0...1, accepted in either order.
    double roughnessMin = 0.18;
    double roughnessMax = 0.82;
    /// Scale of the heuristic metal mask, 0...1.
    double metallicStrength = 0.45;
    /// Depth of the generated occlusion, 0...1.
    double aoStrength = 0.55;
    /// Which files an export writes besides the base color and the normal map.
    bool exportHeight = true;
    bool exportRoughness = true;
    bool exportGloss = true;
    bool exportMetallic = true;
    bool exportAO = true;
    bool exportORM = true;
    bool exportGLTF = true;
    bool exportNotes = true;

    /// `materialName` as file names and documents use it.
    QString safeMaterialName() const;

    bool operator==(const NormalGeneratorSettings&) const = default;
};

/// Whether both give the same images: they may differ in the name and in which files are written.
bool haveSameImages(const NormalGeneratorSettings& a, const NormalGeneratorSettings& b);

}  // namespace quarlin

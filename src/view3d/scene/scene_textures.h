#pragma once

#include <QByteArray>
#include <QImage>
#include <QSize>

namespace quarlin {

/// The maps of a material as glTF 2.0 reads them. A null image stands for a map that the material does not
/// have: a white color, or an even normal; an ORM image for no occlusion, full roughness and no metal.
struct SceneMaps {
    /// In sRGB. Alpha has no effect, as in the exported material.
    QImage baseColor;
    /// Linear: occlusion in red, roughness in green, metallic in blue.
    QImage orm;
    /// Linear: the tangent-space normal, green up.
    QImage normal;

    bool isEmpty() const { return baseColor.isNull() && orm.isNull() && normal.isNull(); }

    /// Whether they are the same images, not only images that look the same.
    bool isSameAs(const SceneMaps& other) const {
        return baseColor.cacheKey() == other.baseColor.cacheKey() && orm.cacheKey() == other.orm.cacheKey() &&
               normal.cacheKey() == other.normal.cacheKey();
    }
};

/// A map in the form that the graphics card takes.
struct SceneTexture {
    QSize size;
    /// Rows from the top, without padding; red, green, blue and alpha of each pixel.
    QByteArray pixels;
};

/// All maps of a material in the form that the graphics card takes; none is missing.
struct SceneTextures {
    /// Half-precision numbers, linear: colors are decoded from sRGB before they are filtered, as glTF
    /// demands.
    SceneTexture baseColor;
    /// Bytes.
    SceneTexture orm;
    SceneTexture normal;

    qsizetype bytes() const { return baseColor.pixels.size() + orm.pixels.size() + normal.pixels.size(); }
};

/// Takes about a tenth of a second for maps of 2048 x 2048, and may be called on any thread.
SceneTextures texturesOf(const SceneMaps& maps);

}  // namespace quarlin

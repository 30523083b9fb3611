#pragma once

#include "view3d/scene/scene_look.h"

#include <QImage>
#include <QtPlugin>

#include <memory>

class QWidget;

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

/// A picture of a material on a solid.
class Scene {
public:
    virtual ~Scene() = default;

    /// Shows the picture. It belongs to its parent once it has one, and is used by the scene until then.
    virtual QWidget* widget() = 0;

    virtual void setMaps(const SceneMaps& maps) = 0;
    virtual void setLook(const SceneLook& look) = 0;

    /// The picture as it is now, at the resolution of the screen.
    virtual QImage picture() = 0;
};

/// Either a scene, or why there is none: one sentence for the user.
struct SceneOrProblem {
    std::unique_ptr<Scene> scene;
    QString problem;
};

/// What the module with the scene offers to the program, which loads it as a plugin.
class SceneFactory {
public:
    virtual ~SceneFactory() = default;

    virtual SceneOrProblem makeScene() = 0;
};

}  // namespace quarlin

#define QUARLIN_SCENE_FACTORY_IID "tech.vorek.quarlin.SceneFactory/1"
Q_DECLARE_INTERFACE(quarlin::SceneFactory, QUARLIN_SCENE_FACTORY_IID)

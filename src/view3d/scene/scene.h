#pragma once

#include "view3d/scene/scene_look.h"
#include "view3d/scene/scene_textures.h"

#include <QImage>
#include <QtPlugin>

#include <memory>

class QWidget;

namespace quarlin {

/// A picture of a material on a solid.
class Scene {
public:
    virtual ~Scene() = default;

    /// Shows the picture. It belongs to its parent once it has one, and is used by the scene until then.
    virtual QWidget* widget() = 0;

    /// Large maps reach the picture one by one, with time for other work between them.
    virtual void setMaps(const SceneTextures& maps) = 0;
    virtual void setLook(const SceneLook& look) = 0;

    /// The picture as it is now, with all maps, at the resolution of the screen.
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

#pragma once

#include "view3d/scene/scene.h"

#include <QObject>

namespace quarlin {

/// The plugin that the program loads when the 3D view is opened for the first time.
class ScenePlugin : public QObject, public SceneFactory {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QUARLIN_SCENE_FACTORY_IID)
    Q_INTERFACES(quarlin::SceneFactory)

public:
    SceneOrProblem makeScene() override;
};

}  // namespace quarlin

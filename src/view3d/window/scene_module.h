#pragma once

#include "view3d/scene/scene.h"

#include <QString>

namespace quarlin {

/// The file of the plugin that draws the 3D view: in the folder where it is installed relative to the
/// program, else where the program was built.
QString sceneModuleFile();

/// Loads the plugin in `file` and makes a scene with it.
SceneOrProblem loadScene(const QString& file);

}  // namespace quarlin

#include "view3d/quick/scene_plugin.h"

#include "view3d/quick/quick_scene.h"

#include <QOffscreenSurface>
#include <QOpenGLContext>

#include <utility>

namespace quarlin {

using namespace Qt::StringLiterals;

namespace {

/// Whether OpenGL, or OpenGL ES, can draw on the screen, in a version whose language has all that the shaders
/// use.
bool hasOpenGL() {
    QOpenGLContext context;
    if (!context.create()) {
        return false;
    }
    QOffscreenSurface surface;
    surface.create();
    if (!context.makeCurrent(&surface)) {
        return false;
    }
    context.doneCurrent();
    return context.format().version() >= std::pair(3, 0);
}

}  // namespace

SceneOrProblem ScenePlugin::makeScene() {
    if (!hasOpenGL()) {
        return {nullptr, u"The 3D view needs OpenGL 3, which this screen does not offer."_s};
    }
    auto scene = std::make_unique<QuickScene>();
    const QString problem = scene->problem();
    if (!problem.isEmpty()) {
        return {nullptr, problem};
    }
    return {std::move(scene), {}};
}

}  // namespace quarlin

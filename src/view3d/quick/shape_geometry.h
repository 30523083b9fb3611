#pragma once

#include "view3d/scene/scene_look.h"

#include <QQuick3DGeometry>

namespace quarlin {

/// The mesh of a shape on the graphics card.
class ShapeGeometry : public QQuick3DGeometry {
    Q_OBJECT

public:
    ShapeGeometry() { setShape(SceneShape::sphere); }

    void setShape(SceneShape shape);
};

}  // namespace quarlin

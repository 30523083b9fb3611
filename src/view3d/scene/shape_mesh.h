#pragma once

#include "view3d/scene/scene_look.h"

#include <QVector2D>
#include <QVector3D>

#include <cstdint>
#include <vector>

namespace quarlin {

/// A corner of a triangle.
struct MeshVertex {
    QVector3D position;
    QVector3D normal;
    /// Texture coordinates as glTF counts them: (0, 0) is the upper left corner of the picture, v goes down.
    QVector2D uv;
    /// The unit vectors to the right and to the top of the picture along the surface.
    QVector3D tangent;
    QVector3D bitangent;
};

/// Triangles, counterclockwise when seen from outside.
struct ShapeMesh {
    std::vector<MeshVertex> vertices;
    std::vector<std::uint32_t> indices;
};

/// The solid around the origin. A picture covers each side of the cube, the plane and the caps of the
/// cylinder once. It goes once around the cylinder, and twice around the sphere, so that it is hardly
/// stretched at the equator.
ShapeMesh shapeMesh(SceneShape shape);

}  // namespace quarlin

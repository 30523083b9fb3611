#include "view3d/scene/shape_mesh.h"

#include <cmath>
#include <functional>
#include <numbers>

namespace quarlin {

namespace {

constexpr double pi = std::numbers::pi;

/// Half the edge of the cube and the plane.
constexpr float halfEdge = 0.78F;
constexpr float planeHalfEdge = 1.15F;
constexpr float cylinderRadius = 0.8F;
constexpr float cylinderHalfHeight = 1.0F;
constexpr float sphereRadius = 1.2F;
/// Fine enough that no edges are seen at the largest zoom.
constexpr int columns = 96;
constexpr int rows = 48;

/// Adds a grid of `across` x `down` cells; `at` gives the vertex for the part of the width and of the height,
/// 0...1, from the upper left corner.
void addGrid(ShapeMesh& mesh, int across, int down, const std::function<MeshVertex(double, double)>& at) {
    const auto first = static_cast<std::uint32_t>(mesh.vertices.size());
    for (int row = 0; row <= down; ++row) {
        for (int column = 0; column <= across; ++column) {
            mesh.vertices.push_back(
                at(static_cast<double>(column) / across, static_cast<double>(row) / down));
        }
    }
    const auto stride = static_cast<std::uint32_t>(across + 1);
    for (int row = 0; row < down; ++row) {
        for (int column = 0; column < across; ++column) {
            const std::uint32_t upperLeft =
                first + static_cast<std::uint32_t>(row) * stride + static_cast<std::uint32_t>(column);
            const std::uint32_t lowerLeft = upperLeft + stride;
            for (const std::uint32_t index :
                 {upperLeft, lowerLeft, lowerLeft + 1, upperLeft, lowerLeft + 1, upperLeft + 1}) {
                mesh.indices.push_back(index);
            }
        }
    }
}

QVector2D uvAt(double u, double v) { return {static_cast<float>(u), static_cast<float>(v)}; }

/// Adds a square with the edge `2 * half` whose picture has its right along `right` and its top along `up`.
void addSquare(ShapeMesh& mesh, const QVector3D& right, const QVector3D& up, float half, float forward) {
    const QVector3D normal = QVector3D::crossProduct(right, up);
    addGrid(mesh, 1, 1, [&](double x, double y) {
        const auto across = static_cast<float>(2 * x - 1);
        const auto upward = static_cast<float>(1 - 2 * y);
        return MeshVertex{(right * across + up * upward) * half + normal * forward, normal, uvAt(x, y), right,
                          up};
    });
}

ShapeMesh cube() {
    const QVector3D x(1, 0, 0);
    const QVector3D y(0, 1, 0);
    const QVector3D z(0, 0, 1);
    ShapeMesh mesh;
    addSquare(mesh, x, y, halfEdge, halfEdge);
    addSquare(mesh, -z, y, halfEdge, halfEdge);
    addSquare(mesh, -x, y, halfEdge, halfEdge);
    addSquare(mesh, z, y, halfEdge, halfEdge);
    addSquare(mesh, x, -z, halfEdge, halfEdge);
    addSquare(mesh, x, z, halfEdge, halfEdge);
    return mesh;
}

/// The plane stands upright. Its back shows the picture as well, the right way round.
ShapeMesh plane() {
    ShapeMesh mesh;
    addSquare(mesh, {1, 0, 0}, {0, 1, 0}, planeHalfEdge, 0);
    addSquare(mesh, {-1, 0, 0}, {0, 1, 0}, planeHalfEdge, 0);
    return mesh;
}

/// The direction outwards after the part `turn` of the way around, to the right from the back through the
/// front: the middle of the picture faces the camera.
QVector3D outwards(double turn) { return directionAt(360 * turn - 180, 0); }
QVector3D rightwards(double turn) { return directionAt(360 * turn - 90, 0); }

ShapeMesh sphere() {
    ShapeMesh mesh;
    addGrid(mesh, columns, rows, [](double x, double y) {
        const QVector3D out = outwards(x);
        const auto level = static_cast<float>(std::sin(y * pi));
        const auto height = static_cast<float>(std::cos(y * pi));
        const QVector3D normal(out.x() * level, height, out.z() * level);
        const QVector3D up(-out.x() * height, level, -out.z() * height);
        return MeshVertex{normal * sphereRadius, normal, uvAt(2 * x, y), rightwards(x), up};
    });
    return mesh;
}

void addCap(ShapeMesh& mesh, float side) {
    // The picture on the lower cap is seen as if the cylinder were tipped backwards.
    const QVector3D up(0, 0, -side);
    addGrid(mesh, columns, 1, [&](double x, double y) {
        const auto part = static_cast<float>(y);
        const QVector3D out = outwards(side > 0 ? x : 1 - x) * part;
        return MeshVertex{
            QVector3D(out.x() * cylinderRadius, side * cylinderHalfHeight, out.z() * cylinderRadius),
            {0, side, 0},
            {0.5F + out.x() / 2, 0.5F + side * out.z() / 2},
            {1, 0, 0},
            up};
    });
}

ShapeMesh cylinder() {
    ShapeMesh mesh;
    addGrid(mesh, columns, 1, [](double x, double y) {
        const QVector3D out = outwards(x);
        const auto height = static_cast<float>(1 - 2 * y) * cylinderHalfHeight;
        return MeshVertex{{out.x() * cylinderRadius, height, out.z() * cylinderRadius},
                          out,
                          uvAt(2 * x, y),
                          rightwards(x),
                          {0, 1, 0}};
    });
    addCap(mesh, 1);
    addCap(mesh, -1);
    return mesh;
}

}  // namespace

ShapeMesh shapeMesh(SceneShape shape) {
    switch (shape) {
        case SceneShape::cube:
            return cube();
        case SceneShape::plane:
            return plane();
        case SceneShape::cylinder:
            return cylinder();
        case SceneShape::sphere:
            break;
    }
    return sphere();
}

}  // namespace quarlin

#include "view3d/environment/octahedron.h"

#include <cmath>

namespace quarlin {

namespace {

float signOf(float value) { return value < 0 ? -1.0F : 1.0F; }

/// Folds the lower half of the octahedron outwards, or back: the map is its own inverse.
QVector2D folded(const QVector2D& point) {
    return {(1 - std::abs(point.y())) * signOf(point.x()), (1 - std::abs(point.x())) * signOf(point.y())};
}

/// Brings a coordinate that has left the square over one edge back, where it is mirrored about the middle of
/// that edge.
QVector2D broughtInside(QVector2D point) {
    if (std::abs(point.x()) > 1) {
        point = {signOf(point.x()) * 2 - point.x(), -point.y()};
    }
    if (std::abs(point.y()) > 1) {
        point = {-point.x(), signOf(point.y()) * 2 - point.y()};
    }
    return point;
}

}  // namespace

QVector3D directionInTile(QVector2D place) {
    QVector2D point = broughtInside(place * 2 - QVector2D(1, 1));
    const float height = 1 - std::abs(point.x()) - std::abs(point.y());
    if (height < 0) {
        point = folded(point);
    }
    return QVector3D(point.x(), height, point.y()).normalized();
}

QVector2D placeInTile(const QVector3D& direction) {
    const float sum = std::abs(direction.x()) + std::abs(direction.y()) + std::abs(direction.z());
    QVector2D point(direction.x() / sum, direction.z() / sum);
    if (direction.y() < 0) {
        point = folded(point);
    }
    return (point + QVector2D(1, 1)) / 2;
}

}  // namespace quarlin

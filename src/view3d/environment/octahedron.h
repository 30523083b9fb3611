#pragma once

#include <QVector2D>
#include <QVector3D>

namespace quarlin {

/// The unit vector at `place` of a square of directions; (0, 0) is its upper left corner, (1, 1) its lower
/// right one. The middle of the square looks up, its corners look down, and its four edges are folded in
/// half. A place just outside of the square continues on the neighboring face.
QVector3D directionInTile(QVector2D place);

/// The inverse of `directionInTile`.
QVector2D placeInTile(const QVector3D& direction);

}  // namespace quarlin

#pragma once

#include <QVector3D>

namespace quarlin {

/// The light that arrives from `direction`, a unit vector with y up, in a photographer's studio: gray walls
/// over a darker floor, a large soft light at the upper left, a narrow one at the right, one behind and one
/// overhead. Linear red, green and blue; 1 is the white of the screen.
QVector3D studioLight(const QVector3D& direction);

}  // namespace quarlin

#include "view3d/scene/scene_look.h"

#include <cmath>
#include <numbers>

namespace quarlin {

QVector3D directionAt(double side, double height) {
    constexpr double radians = std::numbers::pi / 180;
    const double level = std::cos(height * radians);
    return {static_cast<float>(level * std::sin(side * radians)),
            static_cast<float>(std::sin(height * radians)),
            static_cast<float>(level * std::cos(side * radians))};
}

double wrappedAngle(double degrees) { return std::remainder(degrees, 360); }

}  // namespace quarlin

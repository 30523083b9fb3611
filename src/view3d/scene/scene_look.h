#pragma once

#include "model/enumeration.h"
#include "model/setting_range.h"

#include <QColor>
#include <QVector3D>

#include <array>

namespace quarlin {

using namespace Qt::StringLiterals;

/// The solids that a material can be seen on.
enum class SceneShape { sphere, cube, plane, cylinder };

template <>
struct EnumerationTable<SceneShape> {
    struct Row {
        QLatin1StringView rawValue, title;
    };
    static constexpr std::array rows{
        Row{"sphere"_L1, "Sphere"_L1},
        Row{"cube"_L1, "Cube"_L1},
        Row{"plane"_L1, "Plane"_L1},
        Row{"cylinder"_L1, "Cylinder"_L1},
    };
};

/// What the surface shows: the material in light, or the values of one map without any light. The shader of
/// the surface counts the cases in the same order.
enum class SceneContent { lit, baseColor, occlusion, roughness, metallic, normal };

template <>
struct EnumerationTable<SceneContent> {
    struct Row {
        QLatin1StringView rawValue, title;
    };
    static constexpr std::array rows{
        Row{"lit"_L1, "Lit"_L1},         Row{"baseColor"_L1, "Color"_L1}, Row{"occlusion"_L1, "AO"_L1},
        Row{"roughness"_L1, "Rough"_L1}, Row{"metallic"_L1, "Metal"_L1},  Row{"normal"_L1, "Normal"_L1},
    };
};

/// What is behind the solid: the color of the window, the room that lights it, black or white.
enum class SceneBackdrop { window, studio, black, white };

template <>
struct EnumerationTable<SceneBackdrop> {
    struct Row {
        QLatin1StringView rawValue, title;
    };
    static constexpr std::array rows{
        Row{"window"_L1, "Plain"_L1},
        Row{"studio"_L1, "Studio"_L1},
        Row{"black"_L1, "Black"_L1},
        Row{"white"_L1, "White"_L1},
    };
};

inline constexpr SettingRange<int> tilingRange{1, 8};
/// Where the lamp is, in degrees: to the side (0 in front, 90 to the right), and above the horizon.
inline constexpr SettingRange<double> lampSideRange{-180, 180};
inline constexpr SettingRange<double> lampHeightRange{-90, 90};
/// In stops: each doubles the light.
inline constexpr SettingRange<double> exposureRange{-4, 4};
/// From the middle of the solid to the camera. The solids fit into a sphere of radius 1.5.
inline constexpr SettingRange<double> distanceRange{2.2, 12};
/// How far the camera can be above or below the horizon, in degrees.
inline constexpr SettingRange<double> elevationRange{-89, 89};

/// How the material is shown. The scene is a right-handed space with y up; the camera starts in front, on the
/// positive z axis.
struct SceneLook {
    SceneShape shape = SceneShape::sphere;
    SceneContent content = SceneContent::lit;
    SceneBackdrop backdrop = SceneBackdrop::window;
    /// The color of `SceneBackdrop::window`.
    QColor windowColor = Qt::gray;
    /// How often the maps are repeated along each side.
    int tiling = 1;
    double lampSide = 35;
    double lampHeight = 45;
    double exposure = 0;
    /// The camera around the solid, in degrees as the lamp, and its distance.
    double side = 0;
    double elevation = 12;
    double distance = 4.6;

    bool operator==(const SceneLook&) const = default;
};

/// The unit vector towards a point at these angles, in degrees.
QVector3D directionAt(double side, double height);

inline QVector3D directionToLamp(const SceneLook& look) {
    return directionAt(look.lampSide, look.lampHeight);
}
inline QVector3D cameraPosition(const SceneLook& look) {
    return directionAt(look.side, look.elevation) * static_cast<float>(look.distance);
}

/// `degrees` as the same angle in -180...180.
double wrappedAngle(double degrees);

}  // namespace quarlin

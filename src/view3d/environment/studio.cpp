#include "view3d/environment/studio.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace quarlin {

namespace {

/// A panel that shines evenly and fades at its edges.
struct Panel {
    /// Towards its middle, one unit away, and along its width; height is at right angles to both.
    QVector3D middle;
    QVector3D across;
    /// Half of its size at that distance, and how far its edge fades.
    float halfWidth;
    float halfHeight;
    float fade;
    QVector3D light;
};

float smoothStep(float from, float to, float value) {
    const float part = std::clamp((value - from) / (to - from), 0.0F, 1.0F);
    return part * part * (3 - 2 * part);
}

QVector3D mix(const QVector3D& from, const QVector3D& to, float part) { return from + (to - from) * part; }

QVector3D lightOf(const Panel& panel, const QVector3D& direction) {
    const QVector3D middle = panel.middle.normalized();
    const float towards = QVector3D::dotProduct(direction, middle);
    if (towards <= 0) {
        return {};
    }
    const QVector3D across =
        (panel.across - middle * QVector3D::dotProduct(panel.across, middle)).normalized();
    const QVector3D upward = QVector3D::crossProduct(middle, across);
    const float x = std::abs(QVector3D::dotProduct(direction, across)) / towards;
    const float y = std::abs(QVector3D::dotProduct(direction, upward)) / towards;
    const float inside = (1 - smoothStep(panel.halfWidth - panel.fade, panel.halfWidth, x)) *
                         (1 - smoothStep(panel.halfHeight - panel.fade, panel.halfHeight, y));
    return panel.light * inside;
}

}  // namespace

QVector3D studioLight(const QVector3D& direction) {
    static const std::array panels{
        Panel{{-0.75F, 0.6F, 0.65F}, {1, 0, 1}, 0.45F, 0.6F, 0.12F, {4.2F, 4.1F, 3.9F}},
        Panel{{1, 0.15F, 0.35F}, {0, 0, 1}, 0.16F, 0.85F, 0.08F, {1.9F, 2.0F, 2.2F}},
        Panel{{0.2F, 0.35F, -1}, {1, 0, 0}, 0.7F, 0.3F, 0.12F, {2.0F, 2.0F, 2.1F}},
        Panel{{0, 1, 0}, {1, 0, 0}, 0.5F, 0.5F, 0.2F, {1.6F, 1.6F, 1.6F}},
    };
    const QVector3D floor(0.16F, 0.155F, 0.15F);
    const QVector3D wall(0.34F, 0.345F, 0.355F);
    const QVector3D ceiling(0.46F, 0.465F, 0.475F);
    const QVector3D lower = mix(floor, wall, smoothStep(-0.25F, 0.1F, direction.y()));
    QVector3D light = mix(lower, ceiling, smoothStep(0.1F, 1, direction.y()));
    for (const Panel& panel : panels) {
        light += lightOf(panel, direction);
    }
    return light;
}

}  // namespace quarlin

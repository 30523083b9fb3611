#include "view3d/environment/light_filter.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <numbers>

namespace quarlin {

namespace {

constexpr double pi = std::numbers::pi;
constexpr std::uint32_t sampleCount = 512;

struct UnitSquarePoint {
    double x, y;
};

/// The point `index` of the Hammersley sequence: y is the index with its binary digits behind the point in
/// reverse order.
UnitSquarePoint evenlySpread(std::uint32_t index) {
    std::uint32_t reversed = 0;
    for (int bit = 0; bit < 32; ++bit) {
        reversed |= ((index >> bit) & 1U) << (31 - bit);
    }
    return {(index + 0.5) / sampleCount, (reversed + 0.5) / 4294967296.0};
}

/// A space whose z axis is a normal.
struct Frame {
    explicit Frame(const QVector3D& normal) : z(normal) {
        const QVector3D other = std::abs(normal.y()) < 0.9F ? QVector3D(0, 1, 0) : QVector3D(1, 0, 0);
        x = QVector3D::crossProduct(other, normal).normalized();
        y = QVector3D::crossProduct(z, x);
    }

    /// The direction at the angle with the cosine `cosine` from the normal, `turn` of the way around it.
    QVector3D at(double cosine, double turn) const {
        const double sine = std::sqrt(std::max(0.0, 1 - cosine * cosine));
        return x * static_cast<float>(sine * std::cos(2 * pi * turn)) +
               y * static_cast<float>(sine * std::sin(2 * pi * turn)) + z * static_cast<float>(cosine);
    }

    QVector3D x, y, z;
};

/// The cosine between the normal of a surface and that of one of its microfacets, for an even `part`, 0...1:
/// the inverse of the distribution's integral.
double facetCosine(double part, double roughness) {
    const double alpha = roughness * roughness;
    return std::sqrt((1 - part) / (1 + (alpha * alpha - 1) * part));
}

}  // namespace

QVector3D reflectedLight(const Surroundings& surroundings, const QVector3D& direction, double roughness) {
    if (roughness <= 0) {
        return surroundings(direction);
    }
    const Frame frame(direction);
    QVector3D sum;
    double weights = 0;
    for (std::uint32_t index = 0; index < sampleCount; ++index) {
        const UnitSquarePoint point = evenlySpread(index);
        const double cosine = facetCosine(point.x, roughness);
        // The viewer's direction mirrored by the facet: twice the facet's angle from the normal.
        const double mirrored = 2 * cosine * cosine - 1;
        if (mirrored > 0) {
            sum += surroundings(frame.at(mirrored, point.y)) * static_cast<float>(mirrored);
            weights += mirrored;
        }
    }
    return sum / static_cast<float>(weights);
}

QVector3D mattLight(const Surroundings& surroundings, const QVector3D& normal) {
    const Frame frame(normal);
    QVector3D sum;
    for (std::uint32_t index = 0; index < sampleCount; ++index) {
        const UnitSquarePoint point = evenlySpread(index);
        // Directions as dense as their cosine: points spread evenly on the disk below them.
        sum += surroundings(frame.at(std::sqrt(1 - point.x), point.y));
    }
    return sum / static_cast<float>(sampleCount);
}

QVector2D reflectance(double cosine, double roughness) {
    const double towardsView = std::max(cosine, 0.001);
    const double alpha = std::max(roughness * roughness, 0.0001);
    const Frame frame({0, 0, 1});
    const QVector3D view(static_cast<float>(std::sqrt(1 - towardsView * towardsView)), 0,
                         static_cast<float>(towardsView));
    double scale = 0;
    double bias = 0;
    for (std::uint32_t index = 0; index < sampleCount; ++index) {
        const UnitSquarePoint point = evenlySpread(index);
        const QVector3D facet = frame.at(facetCosine(point.x, roughness), point.y);
        const double viewOnFacet = QVector3D::dotProduct(view, facet);
        const QVector3D light = facet * static_cast<float>(2 * viewOnFacet) - view;
        const double towardsLight = light.z();
        if (towardsLight <= 0 || viewOnFacet <= 0) {
            continue;
        }
        const auto smith = [alpha](double a, double b) {
            return a * std::sqrt(b * b * (1 - alpha * alpha) + alpha * alpha);
        };
        const double visibility = 0.5 / (smith(towardsLight, towardsView) + smith(towardsView, towardsLight));
        // The sum's terms are divided by the density of the facets, whose distribution cancels out.
        const double term = 4 * visibility * towardsLight * viewOnFacet / facet.z();
        const double fresnel = std::pow(1 - viewOnFacet, 5);
        scale += (1 - fresnel) * term;
        bias += fresnel * term;
    }
    return {static_cast<float>(scale / sampleCount), static_cast<float>(bias / sampleCount)};
}

}  // namespace quarlin

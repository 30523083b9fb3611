#pragma once

#include <QVector2D>
#include <QVector3D>

#include <functional>

namespace quarlin {

/// The light that arrives from a direction.
using Surroundings = std::function<QVector3D(const QVector3D& direction)>;

// Formulas are those of glTF 2.0's metallic-roughness material: the microfacet distribution of Trowbridge and
// Reitz (GGX) with alpha = roughness * roughness, Smith's height-correlated visibility, Schlick's Fresnel
// term. Integrals are sums over directions spread evenly by the Hammersley sequence.

/// The light that a surface of `roughness`, 0...1, reflects to a viewer straight above it, so that normal,
/// view and mirror direction are all `direction`: the average over the directions that the surface mirrors,
/// weighted by their cosine with the normal. Roughness 0 is a mirror.
QVector3D reflectedLight(const Surroundings& surroundings, const QVector3D& direction, double roughness);

/// The light that a white matt surface with `normal` reflects: the average over the hemisphere, weighted by
/// the cosine.
QVector3D mattLight(const Surroundings& surroundings, const QVector3D& normal);

/// The part of even light that a surface of `roughness` reflects to a viewer at the angle with the cosine
/// `cosine`, both 0...1, as a factor of the reflectance at normal incidence and a term to add.
QVector2D reflectance(double cosine, double roughness);

}  // namespace quarlin

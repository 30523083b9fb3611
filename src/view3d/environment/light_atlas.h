#pragma once

#include <QByteArray>

#include <algorithm>

namespace quarlin {

// The light of the room around the material, filtered in advance and packed into one image that the shaders
// read: a tile for each roughness, one for matt surfaces, and one with the reflectance of a surface.
//
// A tile of directions is an octahedron whose eight faces are folded flat into a square: see
// `directionInTile`. Around each tile is a border of one texel, so that the texels next to an edge can be
// mixed with those that follow on the sphere.

/// What a tile holds.
struct LightTile {
    /// The edge of the square, without the border.
    int edge;
    /// The first row of the tile's border in the atlas; its first column is 0.
    int top;
};

inline constexpr int tileBorder = 1;

/// The light that a surface of the roughness `index / 5` reflects into a direction.
inline constexpr int roughnessTiles = 6;
/// The light that a white matt surface reflects, by the direction of its normal.
inline constexpr int mattTile = 6;
/// The part of the light that a surface reflects: by the cosine between normal and view along x, by the
/// roughness along y. Red is multiplied by the reflectance at normal incidence, green is added.
inline constexpr int reflectanceTile = 7;

/// A blurred picture needs fewer texels.
constexpr int tileEdge(int index) { return std::max(256 >> index, 32); }

/// The tiles are below one another. The shader of the surface computes the same.
constexpr LightTile lightTile(int index) {
    int top = 0;
    for (int above = 0; above < index; ++above) {
        top += tileEdge(above) + 2 * tileBorder;
    }
    return {tileEdge(index), top};
}

inline constexpr int atlasWidth = tileEdge(0) + 2 * tileBorder;
inline constexpr int atlasHeight = lightTile(reflectanceTile + 1).top;

/// Computes the atlas: `atlasWidth` x `atlasHeight` pixels of four half-precision numbers each, red, green,
/// blue and 1, rows from the top, in the byte order of the machine. Light is linear; 1 is the white of the
/// screen.
QByteArray makeLightAtlas();

}  // namespace quarlin

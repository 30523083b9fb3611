#pragma once

#include "matching/map_words.h"

#include <QString>

#include <optional>

namespace quarlin {

/// What a file name says if it ends in the word of a map.
struct NamedMap {
    /// The text before that word, without words about the file; empty if the name is only the map.
    QString material;
    /// Equal for names of the same material: see `materialKey`.
    QString key;
    MapKind kind = MapKind::baseColor;
    Evidence evidence = Evidence::clear;
    /// Only for normal maps.
    GreenDirection green = GreenDirection::unknown;
    /// The number after the word, as in "color_01".
    QString number;
    /// The tile of a UDIM texture, 1001 and up; nothing for a texture in one piece.
    std::optional<int> tile;
};

/// What the name of a texture file says.
///
/// A name consists of words (see `NameWord`). At its end are the word or words of a map, and before and after
/// those, in any order, words about the file: resolution, bit depth, color space, format, version, variant.
/// A normal map may add for which direction of green it is made. "metalness" and "specular" behind another
/// map name the workflow of the set, not a map.
struct TextureName {
    /// The whole name without words about the file at its ends.
    QString plain;
    /// The key of `plain`.
    QString plainKey;
    std::optional<NamedMap> map;
    /// The longer side in pixels as the name states it; 0 if it does not.
    int resolution = 0;
    /// The version (v2) and variant (var2) as the name states them; 0 if it does not.
    int version = 0;
    int variant = 0;
};

/// Reads a file name without its extension.
TextureName readTextureName(const QString& stem, const MapWords& words);

/// A key that is equal for names of the same material: the words of the name, regardless of case, separators,
/// resolution and bit depth.
QString materialKey(const QString& material);

}  // namespace quarlin

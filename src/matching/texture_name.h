#pragma once

#include "model/texture_slot_kind.h"

#include <QString>
#include <QStringList>

#include <optional>

namespace quarlin {

/// What the name of a texture file says: the material, then a suffix for the slot.
///
/// A word ends at every character that is not a letter, mark or number, and before a capital that begins a
/// new word (BrickBaseColor). Before and after the suffix, resolutions (2k, 2048, 1024x1024) and file formats
/// (JPG) are ignored, and so is the word "map" after the suffix.
struct TextureName {
    /// The text before the suffix; empty if the name is only a suffix.
    QString material;
    TextureSlotKind slot = TextureSlotKind::baseColor;
    /// The suffix says gloss or smoothness, which is inverted roughness.
    bool isGloss = false;
    /// Which way the suffix says that the green of a normal map points; at most one of the two is set.
    bool isOpenGL = false;
    bool isDirectX = false;

    bool operator==(const TextureName&) const = default;
};

/// Reads a file name without its extension. Returns nothing if the name does not end in the suffix of a slot.
std::optional<TextureName> readTextureName(const QString& stem);

/// The suffixes of `slot`, in lower case and without separators.
QStringList textureSuffixes(TextureSlotKind slot);

/// A key that is equal for names of the same material: the words of the name, regardless of case and
/// separators.
QString materialKey(const QString& material);

}  // namespace quarlin

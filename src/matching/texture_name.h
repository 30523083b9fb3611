#pragma once

#include "model/texture_slot_kind.h"

#include <QString>
#include <QStringList>

#include <optional>

namespace quarlin {

/// What the name of a texture file tells: the material, then a suffix for the slot.
///
/// Words end at every character that is no letter, mark or number, and where a capital begins a new one
/// (BrickBaseColor). Behind the suffix, and between the material and the suffix, resolutions (2k, 2048,
/// 1024x1024) and file formats (JPG) are passed over, and so is the word "map" behind the suffix.
struct TextureName {
    /// The text before the suffix; empty when the name is nothing but a suffix.
    QString material;
    TextureSlotKind slot = TextureSlotKind::baseColor;
    /// The suffix tells gloss or smoothness, which is roughness inverted.
    bool isGloss = false;
    /// The suffix tells which way the green of a normal map points; at most one of the two is set.
    bool isOpenGL = false;
    bool isDirectX = false;

    bool operator==(const TextureName&) const = default;
};

/// Reads a file name without its extension; nothing when it does not end in a suffix that tells a slot.
std::optional<TextureName> readTextureName(const QString& stem);

/// The suffixes that tell `slot`, in lower case and without separators.
QStringList textureSuffixes(TextureSlotKind slot);

/// What two materials have in common that are the same one: the words of the name, regardless of case and of
/// what stands between them.
QString materialKey(const QString& material);

}  // namespace quarlin

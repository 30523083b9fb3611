#include "texture_slot_kind.h"

namespace quarlin {

QString shortTitle(TextureSlotKind slot) { return tableRow(slot).shortTitle; }

QString systemImage(TextureSlotKind slot) { return tableRow(slot).systemImage; }

QString help(TextureSlotKind slot) {
    switch (slot) {
        case TextureSlotKind::baseColor:
            return QStringLiteral(
                "Unlit albedo/base color. Diffuse maps work as a source, but baked lighting should be "
                "reduced when possible.");
        case TextureSlotKind::normal:
            return QStringLiteral("Tangent-space normal map. Enable Y flip if your source is DirectX-style.");
        case TextureSlotKind::occlusion:
            return QStringLiteral(
                "Ambient occlusion. Packed into the red channel of the SL/glTF ORM map. "
                "Missing AO exports white.");
        case TextureSlotKind::roughness:
            return QStringLiteral("Roughness grayscale. If your input is gloss/smoothness, enable invert.");
        case TextureSlotKind::metallic:
            return QStringLiteral(
                "Metallic grayscale. Most fabric, stone, wood, skin, plastic and painted items should stay "
                "black.");
    }
    return {};
}

bool required(TextureSlotKind slot) { return slot == TextureSlotKind::baseColor; }

}  // namespace quarlin

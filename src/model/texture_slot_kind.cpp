#include "model/texture_slot_kind.h"

namespace quarlin {

using namespace Qt::StringLiterals;

QString shortTitle(TextureSlotKind slot) { return tableRow(slot).shortTitle; }

QString systemImage(TextureSlotKind slot) { return tableRow(slot).systemImage; }

QString help(TextureSlotKind slot) {
    switch (slot) {
        case TextureSlotKind::baseColor:
            return u"Unlit albedo/base color. Diffuse maps work as a source, but baked lighting should be "
                   "reduced when possible."_s;
        case TextureSlotKind::normal:
            return u"Tangent-space normal map. Enable Y flip if your source is DirectX-style."_s;
        case TextureSlotKind::occlusion:
            return u"Ambient occlusion. Packed into the red channel of the SL/glTF ORM map. "
                   "Missing AO exports white."_s;
        case TextureSlotKind::roughness:
            return u"Roughness grayscale. If your input is gloss/smoothness, enable invert."_s;
        case TextureSlotKind::metallic:
            return u"Metallic grayscale. Most fabric, stone, wood, skin, plastic and painted items should "
                   u"stay "
                   "black."_s;
    }
    return {};
}

bool required(TextureSlotKind slot) { return slot == TextureSlotKind::baseColor; }

}  // namespace quarlin

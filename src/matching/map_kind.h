#pragma once

#include "model/enumeration.h"
#include "model/texture_slot_kind.h"

#include <array>
#include <optional>

namespace quarlin {

using namespace Qt::StringLiterals;

/// What the file of a texture library can be.
enum class MapKind {
    baseColor,
    normal,
    occlusion,
    roughness,
    gloss,
    metallic,
    orm,
    rma,
    mra,
    rom,
    metallicRoughness,
    occlusionRoughness,
    metallicSmoothness,
    maskMap,
    height,
    specular,
    emissive,
    opacity,
    colorWithSmoothness,
    normalWithHeight,
    otherMap,
    preview,
};

/// A slot that a map fills, and the channel that fills it; nothing for the whole picture.
struct MapUse {
    TextureSlotKind slot = TextureSlotKind::baseColor;
    std::optional<TextureChannel> channel = {};
    /// The values are gloss, which is inverted roughness.
    bool isGloss = false;
};

/// What a map is used for, in the order of its channels; unused places are empty.
using MapUses = std::array<std::optional<MapUse>, 3>;

constexpr MapUses wholePicture(TextureSlotKind slot, bool isGloss = false) {
    return {MapUse{slot, std::nullopt, isGloss}, std::nullopt, std::nullopt};
}

/// The uses of red, green and blue.
constexpr MapUses redGreenBlue(TextureSlotKind red, TextureSlotKind green, TextureSlotKind blue) {
    return {MapUse{red, TextureChannel::red}, MapUse{green, TextureChannel::green},
            MapUse{blue, TextureChannel::blue}};
}

template <>
struct EnumerationTable<MapKind> {
    struct Row {
        /// The identifier in rules for names, and what the kind is called after "a" or "an".
        QLatin1StringView rawValue, title;
        /// Empty for a map that a material of glTF has no slot for.
        MapUses uses;
    };
    using Slot = TextureSlotKind;
    static constexpr MapUses noUse{};
    static constexpr std::array rows{
        Row{"base-color"_L1, "base color map"_L1, wholePicture(Slot::baseColor)},
        Row{"normal"_L1, "normal map"_L1, wholePicture(Slot::normal)},
        Row{"occlusion"_L1, "occlusion map"_L1, wholePicture(Slot::occlusion)},
        Row{"roughness"_L1, "roughness map"_L1, wholePicture(Slot::roughness)},
        Row{"gloss"_L1, "gloss map"_L1, wholePicture(Slot::roughness, true)},
        Row{"metallic"_L1, "metallic map"_L1, wholePicture(Slot::metallic)},
        Row{"orm"_L1, "packed map"_L1, redGreenBlue(Slot::occlusion, Slot::roughness, Slot::metallic)},
        Row{"rma"_L1, "packed map"_L1, redGreenBlue(Slot::roughness, Slot::metallic, Slot::occlusion)},
        Row{"mra"_L1, "packed map"_L1, redGreenBlue(Slot::metallic, Slot::roughness, Slot::occlusion)},
        Row{"rom"_L1, "packed map"_L1, redGreenBlue(Slot::roughness, Slot::occlusion, Slot::metallic)},
        Row{"metallic-roughness"_L1,
            "packed map"_L1,
            {MapUse{Slot::roughness, TextureChannel::green}, MapUse{Slot::metallic, TextureChannel::blue}}},
        Row{"occlusion-roughness"_L1,
            "packed map"_L1,
            {MapUse{Slot::occlusion, TextureChannel::red}, MapUse{Slot::roughness, TextureChannel::green}}},
        Row{"metallic-smoothness"_L1,
            "packed map"_L1,
            {MapUse{Slot::metallic, TextureChannel::red},
             MapUse{Slot::roughness, TextureChannel::alpha, true}}},
        Row{"mask-map"_L1,
            "packed map"_L1,
            {MapUse{Slot::metallic, TextureChannel::red}, MapUse{Slot::occlusion, TextureChannel::green},
             MapUse{Slot::roughness, TextureChannel::alpha, true}}},
        Row{"height"_L1, "height map"_L1, noUse},
        Row{"specular"_L1, "specular map"_L1, noUse},
        Row{"emissive"_L1, "emissive map"_L1, noUse},
        Row{"opacity"_L1, "opacity map"_L1, noUse},
        Row{"color-with-smoothness"_L1, "color map with smoothness in its alpha"_L1, noUse},
        Row{"normal-with-height"_L1, "normal map combined with a height map"_L1, noUse},
        Row{"other"_L1, "map of another kind"_L1, noUse},
        Row{"preview"_L1, "preview picture"_L1, noUse},
    };
};

/// Whether a material has a slot for the map.
inline bool isUsed(MapKind kind) { return tableRow(kind).uses.front().has_value(); }

/// Whether several maps are packed into the channels of one file.
inline bool isPacked(MapKind kind) {
    const auto& first = tableRow(kind).uses.front();
    return first && first->channel;
}

}  // namespace quarlin

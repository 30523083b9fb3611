#pragma once

#include "model/enumeration.h"

namespace quarlin {

using namespace Qt::StringLiterals;

/// The inputs of a material, in the order in which they are shown.
enum class TextureSlotKind { baseColor, normal, occlusion, roughness, metallic };

template <>
struct EnumerationTable<TextureSlotKind> {
    struct Row {
        QLatin1StringView rawValue, title, shortTitle, systemImage;
    };
    static constexpr std::array rows{
        Row{"baseColor"_L1, "Base Color"_L1, "Color"_L1, "paintpalette"_L1},
        Row{"normal"_L1, "Normal"_L1, "Normal"_L1, "cube.transparent"_L1},
        Row{"occlusion"_L1, "Occlusion"_L1, "AO"_L1, "circle.lefthalf.filled"_L1},
        Row{"roughness"_L1, "Roughness / Gloss"_L1, "Rough"_L1, "sparkles.rectangle.stack"_L1},
        Row{"metallic"_L1, "Metallic"_L1, "Metal"_L1, "shield.lefthalf.filled"_L1},
    };
};

/// The slot's name where space is short.
QString shortTitle(TextureSlotKind slot);

/// The name of the slot's symbol.
QString systemImage(TextureSlotKind slot);

/// One sentence of guidance shown with the slot.
QString help(TextureSlotKind slot);

/// Whether a material set needs the slot: true for the base color alone.
bool required(TextureSlotKind slot);

/// The channels of an image file, one of which can be the input of a slot, in the order of their samples.
enum class TextureChannel { red, green, blue, alpha };

template <>
struct EnumerationTable<TextureChannel> {
    struct Row {
        /// The letter that chooses the channel on the command line, and the name of the channel.
        QLatin1StringView rawValue, title;
    };
    static constexpr std::array rows{
        Row{"r"_L1, "red"_L1},
        Row{"g"_L1, "green"_L1},
        Row{"b"_L1, "blue"_L1},
        Row{"a"_L1, "alpha"_L1},
    };
};

}  // namespace quarlin

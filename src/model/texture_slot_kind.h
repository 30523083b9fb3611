#pragma once

#include "enumeration.h"

namespace quarlin {

/// The inputs of a material, in the order in which they are shown.
enum class TextureSlotKind { baseColor, normal, occlusion, roughness, metallic };

template <>
struct EnumerationTable<TextureSlotKind> {
    struct Row {
        QLatin1StringView rawValue, title, shortTitle, systemImage;
    };
    static constexpr std::array rows{
        Row{QLatin1StringView("baseColor"), QLatin1StringView("Base Color"), QLatin1StringView("Color"),
            QLatin1StringView("paintpalette")},
        Row{QLatin1StringView("normal"), QLatin1StringView("Normal"), QLatin1StringView("Normal"),
            QLatin1StringView("cube.transparent")},
        Row{QLatin1StringView("occlusion"), QLatin1StringView("Occlusion"), QLatin1StringView("AO"),
            QLatin1StringView("circle.lefthalf.filled")},
        Row{QLatin1StringView("roughness"), QLatin1StringView("Roughness / Gloss"),
            QLatin1StringView("Rough"), QLatin1StringView("sparkles.rectangle.stack")},
        Row{QLatin1StringView("metallic"), QLatin1StringView("Metallic"), QLatin1StringView("Metal"),
            QLatin1StringView("shield.lefthalf.filled")},
    };
};

/// The slot's name where space is short.
QString shortTitle(TextureSlotKind slot);

/// The name of the slot's symbol.
QString systemImage(TextureSlotKind slot);

/// One sentence of guidance shown with the slot.
QString help(TextureSlotKind slot);

/// Whether a material set needs the slot: true for the base colour alone.
bool required(TextureSlotKind slot);

}  // namespace quarlin

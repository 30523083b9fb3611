#pragma once

#include "enumeration.h"

namespace quarlin {

/// The preview tiles of the PBR Material tool.
enum class OutputPreviewKind { baseColor, orm, normal };

template <>
struct EnumerationTable<OutputPreviewKind> {
    struct Row {
        QLatin1StringView rawValue, title, subtitle;
    };
    static constexpr std::array rows{
        Row{QLatin1StringView("baseColor"), QLatin1StringView("Base"), QLatin1StringView("Color + alpha")},
        Row{QLatin1StringView("orm"), QLatin1StringView("ORM"),
            QLatin1StringView("R AO / G Rough / B Metal")},
        Row{QLatin1StringView("normal"), QLatin1StringView("Normal"),
            QLatin1StringView("glTF tangent normal")},
    };
};

/// What the tile shows, in a few words.
inline QString subtitle(OutputPreviewKind kind) { return tableRow(kind).subtitle; }

}  // namespace quarlin

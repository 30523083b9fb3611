#pragma once

#include "enumeration.h"

namespace quarlin {

/// The preview tiles of the Map Generator tool.
enum class NormalPreviewKind { source, height, normal, roughness, gloss, metallic, occlusion, orm };

template <>
struct EnumerationTable<NormalPreviewKind> {
    struct Row {
        QLatin1StringView rawValue, title, subtitle;
    };
    static constexpr std::array rows{
        Row{QLatin1StringView("source"), QLatin1StringView("Source"), QLatin1StringView("Original texture")},
        Row{QLatin1StringView("height"), QLatin1StringView("Height"),
            QLatin1StringView("Generated grayscale")},
        Row{QLatin1StringView("normal"), QLatin1StringView("Normal"),
            QLatin1StringView("RGB tangent normal")},
        Row{QLatin1StringView("roughness"), QLatin1StringView("Roughness"),
            QLatin1StringView("PBR roughness")},
        Row{QLatin1StringView("gloss"), QLatin1StringView("Gloss"), QLatin1StringView("Inverse roughness")},
        Row{QLatin1StringView("metallic"), QLatin1StringView("Metallic"),
            QLatin1StringView("Heuristic metal mask")},
        Row{QLatin1StringView("occlusion"), QLatin1StringView("AO"),
            QLatin1StringView("Generated shadow helper")},
        Row{QLatin1StringView("orm"), QLatin1StringView("ORM"),
            QLatin1StringView("R AO / G Rough / B Metal")},
    };
};

/// What the tile shows, in a few words.
inline QString subtitle(NormalPreviewKind kind) { return tableRow(kind).subtitle; }

}  // namespace quarlin

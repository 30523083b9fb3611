#pragma once

#include "model/enumeration.h"

namespace quarlin {

using namespace Qt::StringLiterals;

/// The preview tiles of the Map Generator tool.
enum class NormalPreviewKind { source, height, normal, roughness, gloss, metallic, occlusion, orm };

template <>
struct EnumerationTable<NormalPreviewKind> {
    struct Row {
        QLatin1StringView rawValue, title, subtitle;
    };
    static constexpr std::array rows{
        Row{"source"_L1, "Source"_L1, "Original texture"_L1},
        Row{"height"_L1, "Height"_L1, "Generated grayscale"_L1},
        Row{"normal"_L1, "Normal"_L1, "RGB tangent normal"_L1},
        Row{"roughness"_L1, "Roughness"_L1, "PBR roughness"_L1},
        Row{"gloss"_L1, "Gloss"_L1, "Inverse roughness"_L1},
        Row{"metallic"_L1, "Metallic"_L1, "Heuristic metal mask"_L1},
        Row{"occlusion"_L1, "AO"_L1, "Generated shadow helper"_L1},
        Row{"orm"_L1, "ORM"_L1, "R AO / G Rough / B Metal"_L1},
    };
};

/// What the tile shows, in a few words.
inline QString subtitle(NormalPreviewKind kind) { return tableRow(kind).subtitle; }

}  // namespace quarlin

#pragma once

#include "model/enumeration.h"

namespace quarlin {

using namespace Qt::StringLiterals;

/// The preview tiles of the PBR Material tool.
enum class OutputPreviewKind { baseColor, orm, normal };

template <>
struct EnumerationTable<OutputPreviewKind> {
    struct Row {
        QLatin1StringView rawValue, title, subtitle;
    };
    static constexpr std::array rows{
        Row{"baseColor"_L1, "Base"_L1, "Color + alpha"_L1},
        Row{"orm"_L1, "ORM"_L1, "R AO / G Rough / B Metal"_L1},
        Row{"normal"_L1, "Normal"_L1, "glTF tangent normal"_L1},
    };
};

/// What the tile shows, in a few words.
inline QString subtitle(OutputPreviewKind kind) { return tableRow(kind).subtitle; }

}  // namespace quarlin

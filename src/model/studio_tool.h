#pragma once

#include "model/enumeration.h"

namespace quarlin {

using namespace Qt::StringLiterals;

/// The tools of the window, in tab order.
enum class StudioTool { pbr, normalGenerator };

template <>
struct EnumerationTable<StudioTool> {
    struct Row {
        QLatin1StringView rawValue, title, systemImage;
    };
    static constexpr std::array rows{
        Row{"pbr"_L1, "PBR Material"_L1, "cube.transparent"_L1},
        Row{"normalGenerator"_L1, "Map Generator"_L1, "mountain.2"_L1},
    };
};

/// The name of the tool's symbol.
inline QString systemImage(StudioTool tool) { return tableRow(tool).systemImage; }

}  // namespace quarlin

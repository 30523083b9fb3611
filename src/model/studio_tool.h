#pragma once

#include "enumeration.h"

namespace quarlin {

/// The tools of the window, in tab order.
enum class StudioTool { pbr, normalGenerator };

template <>
struct EnumerationTable<StudioTool> {
    struct Row {
        QLatin1StringView rawValue, title, systemImage;
    };
    static constexpr std::array rows{
        Row{QLatin1StringView("pbr"), QLatin1StringView("PBR Material"),
            QLatin1StringView("cube.transparent")},
        Row{QLatin1StringView("normalGenerator"), QLatin1StringView("Map Generator"),
            QLatin1StringView("mountain.2")},
    };
};

/// The name of the tool's symbol.
inline QString systemImage(StudioTool tool) { return tableRow(tool).systemImage; }

}  // namespace quarlin

#pragma once

#include "enumeration.h"

#include <cstdint>

namespace quarlin {

/// The choice of output size.
enum class OutputResolution { matchBase, px512, px1024, px2048, px4096 };

template <>
struct EnumerationTable<OutputResolution> {
    struct Row {
        QLatin1StringView rawValue, title;
        std::optional<std::int64_t> fixedPixels;
    };
    static constexpr std::array rows{
        Row{QLatin1StringView("matchBase"), QLatin1StringView("Base Size"), std::nullopt},
        Row{QLatin1StringView("px512"), QLatin1StringView("512"), 512},
        Row{QLatin1StringView("px1024"), QLatin1StringView("1024"), 1024},
        Row{QLatin1StringView("px2048"), QLatin1StringView("2048"), 2048},
        Row{QLatin1StringView("px4096"), QLatin1StringView("4096"), 4096},
    };
};

/// The edge of the square output in pixels, or nothing where the output takes the source's own size.
constexpr std::optional<std::int64_t> fixedPixels(OutputResolution resolution) {
    return tableRow(resolution).fixedPixels;
}

}  // namespace quarlin

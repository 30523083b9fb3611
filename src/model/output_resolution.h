#pragma once

#include "model/enumeration.h"

#include <cstdint>

namespace quarlin {

using namespace Qt::StringLiterals;

/// The choice of output size.
enum class OutputResolution { matchBase, px512, px1024, px2048, px4096 };

template <>
struct EnumerationTable<OutputResolution> {
    struct Row {
        QLatin1StringView rawValue, title;
        std::optional<std::int64_t> fixedPixels;
    };
    static constexpr std::array rows{
        Row{"matchBase"_L1, "Base Size"_L1, std::nullopt},
        Row{"px512"_L1, "512"_L1, 512},
        Row{"px1024"_L1, "1024"_L1, 1024},
        Row{"px2048"_L1, "2048"_L1, 2048},
        Row{"px4096"_L1, "4096"_L1, 4096},
    };
};

/// The edge of the square output in pixels, or nothing where the output takes the source's own size.
constexpr std::optional<std::int64_t> fixedPixels(OutputResolution resolution) {
    return tableRow(resolution).fixedPixels;
}

}  // namespace quarlin

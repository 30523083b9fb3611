#pragma once

#include "model/normal_generator_settings.h"
#include "model/set_file.h"

#include <algorithm>
#include <array>
#include <optional>

namespace quarlin {

using namespace Qt::StringLiterals;

// What a generated set consists of. These two tables are the only place that lists its maps and its files.
// The engine, the previews, the notes, the options of the command line and the settings panel read them.

/// The images of the Map Generator, in the order of their preview tiles. `source` is the texture itself at
/// the size of the set; the others are computed from it. `height` and `normal` come before all the surface
/// maps.
enum class GeneratedMap { source, height, normal, roughness, gloss, metallic, occlusion, orm };

/// The preview tiles show the images, one each.
using NormalPreviewKind = GeneratedMap;

template <>
struct EnumerationTable<GeneratedMap> {
    struct Row {
        /// Identifier, and the two lines below the preview tile.
        QLatin1StringView rawValue, title, subtitle;
        /// Whether red, green and blue are the same and alpha is 255, so that a pixel takes one byte until
        /// the map is encoded. The other images take four.
        bool isGray;
    };
    static constexpr std::array rows{
        Row{"source"_L1, "Source"_L1, "Original texture"_L1, false},
        Row{"height"_L1, "Height"_L1, "Generated grayscale"_L1, true},
        Row{"normal"_L1, "Normal"_L1, "RGB tangent normal"_L1, false},
        Row{"roughness"_L1, "Roughness"_L1, "PBR roughness"_L1, true},
        Row{"gloss"_L1, "Gloss"_L1, "Inverse roughness"_L1, true},
        Row{"metallic"_L1, "Metallic"_L1, "Heuristic metal mask"_L1, true},
        Row{"occlusion"_L1, "AO"_L1, "Generated shadow helper"_L1, true},
        Row{"orm"_L1, "ORM"_L1, "R AO / G Rough / B Metal"_L1, false},
    };
};

/// What the tile shows, in a few words.
inline QString subtitle(GeneratedMap map) { return tableRow(map).subtitle; }

constexpr bool isGray(GeneratedMap map) { return tableRow(map).isGray; }

/// The images from `first` on, in the order of the cases.
template <GeneratedMap first>
constexpr auto mapsFrom() {
    constexpr auto all = allCases<GeneratedMap>();
    std::array<GeneratedMap, all.size() - static_cast<std::size_t>(first)> maps{};
    std::copy(all.end() - maps.size(), all.end(), maps.begin());
    return maps;
}

/// The images that are computed: all but `source`.
inline constexpr auto computedMaps = mapsFrom<GeneratedMap::height>();

/// The maps that are estimated from the colors and the heights of the source together.
inline constexpr auto surfaceMaps = mapsFrom<GeneratedMap::roughness>();

/// The files of a generated set, in the order in which they are written.
enum class GeneratedFile {
    baseColor,
    normal,
    height,
    roughness,
    gloss,
    metallic,
    occlusion,
    orm,
    gltf,
    notes
};

template <>
struct EnumerationTable<GeneratedFile> {
    struct Row : SetFile<NormalGeneratorSettings> {
        /// The image in the file; nothing for a document.
        std::optional<GeneratedMap> map;
    };
    static constexpr std::array rows{
        Row{{.rawValue = "base-color"_L1, .suffix = "_basecolor.png"_L1, .title = "Base Color"_L1},
            GeneratedMap::source},
        Row{{.rawValue = "normal"_L1, .suffix = "_normal.png"_L1, .title = "Normal map"_L1},
            GeneratedMap::normal},
        Row{{.rawValue = "height"_L1,
             .suffix = "_height.png"_L1,
             .title = "Height helper"_L1,
             .isExported = &NormalGeneratorSettings::exportHeight,
             .description = "height map"_L1,
             .toggle = "Write height helper"_L1},
            GeneratedMap::height},
        Row{{.rawValue = "roughness"_L1,
             .suffix = "_roughness.png"_L1,
             .title = "Roughness"_L1,
             .isExported = &NormalGeneratorSettings::exportRoughness,
             .description = "roughness map"_L1,
             .toggle = "Write roughness"_L1},
            GeneratedMap::roughness},
        Row{{.rawValue = "gloss"_L1,
             .suffix = "_gloss.png"_L1,
             .title = "Gloss"_L1,
             .isExported = &NormalGeneratorSettings::exportGloss,
             .description = "gloss map"_L1,
             .toggle = "Write gloss"_L1},
            GeneratedMap::gloss},
        Row{{.rawValue = "metallic"_L1,
             .suffix = "_metallic.png"_L1,
             .title = "Metallic"_L1,
             .isExported = &NormalGeneratorSettings::exportMetallic,
             .description = "metallic map"_L1,
             .toggle = "Write metallic"_L1},
            GeneratedMap::metallic},
        Row{{.rawValue = "ao"_L1,
             .suffix = "_ao.png"_L1,
             .title = "Ambient Occlusion"_L1,
             .isExported = &NormalGeneratorSettings::exportAO,
             .description = "ambient occlusion map"_L1,
             .toggle = "Write AO"_L1},
            GeneratedMap::occlusion},
        Row{{.rawValue = "orm"_L1,
             .suffix = "_orm.png"_L1,
             .title = "ORM packed map"_L1,
             .isExported = &NormalGeneratorSettings::exportORM,
             .description = "packed ORM map"_L1,
             .toggle = "Write ORM"_L1},
            GeneratedMap::orm},
        Row{{.rawValue = "gltf"_L1,
             .suffix = ".gltf"_L1,
             .title = "glTF material"_L1,
             .isExported = &NormalGeneratorSettings::exportGLTF,
             .description = ".gltf material"_L1,
             .toggle = "Write .gltf material"_L1},
            std::nullopt},
        Row{{.rawValue = "notes"_L1,
             .suffix = "_maps_notes.txt"_L1,
             .title = {},
             .isExported = &NormalGeneratorSettings::exportNotes,
             .description = "notes"_L1,
             .toggle = "Write notes"_L1},
            std::nullopt},
    };
};

/// Whether an export with `settings` writes `file`.
constexpr bool isWritten(GeneratedFile file, const NormalGeneratorSettings& settings) {
    return isSwitchedOn(file, settings);
}

}  // namespace quarlin

#pragma once

#include "model/conversion_settings.h"
#include "model/set_file.h"

#include <array>
#include <optional>

namespace quarlin {

using namespace Qt::StringLiterals;

// What a material set consists of. These two tables are the only place that lists its images and its files.
// The engine, the previews, the notes, the options of the command line and the settings panel read them.

/// The images of the PBR Material tool, in the order of their preview tiles.
enum class MaterialImage { baseColor, orm, normal };

/// The preview tiles show the images, one each.
using OutputPreviewKind = MaterialImage;

template <>
struct EnumerationTable<MaterialImage> {
    struct Row {
        /// Identifier, and the two lines below the preview tile.
        QLatin1StringView rawValue, title, subtitle;
    };
    static constexpr std::array rows{
        Row{"baseColor"_L1, "Base"_L1, "Color + alpha"_L1},
        Row{"orm"_L1, "ORM"_L1, "R AO / G Rough / B Metal"_L1},
        Row{"normal"_L1, "Normal"_L1, "glTF tangent normal"_L1},
    };
};

/// What the tile shows, in a few words.
inline QString subtitle(MaterialImage image) { return tableRow(image).subtitle; }

/// The files of a material set, in the order in which they are written.
enum class MaterialFile { baseColor, orm, normal, gltf, notes };

template <>
struct EnumerationTable<MaterialFile> {
    struct Row : SetFile<ConversionSettings> {
        /// The image in the file; nothing for a document.
        std::optional<MaterialImage> image;
    };
    static constexpr std::array rows{
        Row{{.rawValue = "base-color"_L1, .suffix = "_BaseColor.png"_L1, .title = "Base Color"_L1},
            MaterialImage::baseColor},
        Row{{.rawValue = "orm"_L1, .suffix = "_ORM.png"_L1, .title = "Metallic/Roughness"_L1},
            MaterialImage::orm},
        Row{{.rawValue = "normal"_L1, .suffix = "_Normal.png"_L1, .title = "Normal"_L1},
            MaterialImage::normal},
        Row{{.rawValue = "gltf"_L1,
             .suffix = ".gltf"_L1,
             .title = "glTF material"_L1,
             .isExported = &ConversionSettings::exportGLTF,
             .description = ".gltf material"_L1,
             .toggle = "Write .gltf material"_L1},
            std::nullopt},
        Row{{.rawValue = "notes"_L1,
             .suffix = "_SL_PBR_notes.txt"_L1,
             .title = {},
             .isExported = &ConversionSettings::exportNotes,
             .description = "notes"_L1,
             .toggle = "Write notes"_L1},
            std::nullopt},
    };
};

/// Whether an export with `settings` writes `file`. `hasNormal`: the material has a normal map.
constexpr bool isWritten(MaterialFile file, const ConversionSettings& settings, bool hasNormal) {
    return isSwitchedOn(file, settings) && (file != MaterialFile::normal || hasNormal);
}

}  // namespace quarlin

#pragma once

#include "model/enumeration.h"

#include <QString>

#include <vector>

namespace quarlin {

using namespace Qt::StringLiterals;

/// How bad a finding is: worth knowing, likely not meant, or bound to fail.
enum class Severity { note, warning, error };

template <>
struct EnumerationTable<Severity> {
    struct Row {
        QLatin1StringView rawValue, title;
    };
    static constexpr std::array rows{
        Row{"note"_L1, "note"_L1},
        Row{"warning"_L1, "warning"_L1},
        Row{"error"_L1, "error"_L1},
    };
};

/// What can be found. The raw values are identifiers for scripts and never change.
enum class FindingKind {
    unreadableFolder,
    noSet,
    unreadableDocument,
    invalidJSON,
    invalidGLTF,
    outsideReference,
    missingImage,
    undecodableImage,
    wrongFormat,
    wrongChannels,
    occlusionNotORM,
    wrongDepth,
    indexedColor,
    notPowerOfTwo,
    tooLarge,
    differentSizes,
    ignoredAlpha,
    normalInverted,
    normalNotUnit,
    normalInward,
    nameCut,
    fileNameCut,
    normalGreenDown,
    noBaseColor,
    noORM,
    embeddedImage,
};

template <>
struct EnumerationTable<FindingKind> {
    struct Row {
        QLatin1StringView rawValue;
        Severity severity;
        /// What it means, for the help.
        QLatin1StringView title;
    };
    static constexpr std::array rows{
        Row{"unreadable-folder"_L1, Severity::error, "the folder can't be read"_L1},
        Row{"no-set"_L1, Severity::error,
            "the folder holds neither a .gltf nor images with the names of a set"_L1},
        Row{"unreadable-document"_L1, Severity::error, "the .gltf can't be read"_L1},
        Row{"invalid-json"_L1, Severity::error, "the .gltf is no JSON"_L1},
        Row{"invalid-gltf"_L1, Severity::error,
            "the .gltf is no glTF 2.0, has no material, or refers to what it does not hold"_L1},
        Row{"outside-reference"_L1, Severity::error,
            "an image is referred to that lies outside the folder"_L1},
        Row{"missing-image"_L1, Severity::error, "an image is missing"_L1},
        Row{"undecodable-image"_L1, Severity::error, "a file is no whole, intact image"_L1},
        Row{"wrong-format"_L1, Severity::error,
            "an image is neither PNG nor JPEG, or another one than its name says"_L1},
        Row{"wrong-channels"_L1, Severity::error,
            "an ORM or normal map is gray, so that all its channels are the same"_L1},
        Row{"occlusion-not-orm"_L1, Severity::error,
            "occlusion is another image than metallic and roughness"_L1},
        Row{"wrong-depth"_L1, Severity::warning, "an image has other than 8 bits per channel"_L1},
        Row{"indexed-color"_L1, Severity::warning, "an image has a palette instead of channels"_L1},
        Row{"not-power-of-two"_L1, Severity::warning,
            "a side is no power of two, so that the image is rescaled on upload"_L1},
        Row{"too-large"_L1, Severity::warning,
            "a side is longer than 2048 pixels, so that the image is scaled down on upload"_L1},
        Row{"different-sizes"_L1, Severity::warning, "the maps of a material are of different sizes"_L1},
        Row{"ignored-alpha"_L1, Severity::warning,
            "the base color is transparent in places, and the material is opaque"_L1},
        Row{"normal-inverted"_L1, Severity::warning, "the green of a normal map looks inverted (DirectX)"_L1},
        Row{"normal-not-unit"_L1, Severity::warning, "many normals of a normal map are not of length 1"_L1},
        Row{"normal-inward"_L1, Severity::warning, "normals of a normal map point into the surface"_L1},
        Row{"name-cut"_L1, Severity::warning,
            "the material's name is longer than the 63 bytes of an inventory name"_L1},
        Row{"file-name-cut"_L1, Severity::note,
            "the name of an image is longer than that, and is cut when it is uploaded alone"_L1},
        Row{"normal-green-down"_L1, Severity::note, "the green of a generated normal map points down"_L1},
        Row{"no-base-color"_L1, Severity::note, "a material has no base color image"_L1},
        Row{"no-orm"_L1, Severity::note, "a material has no ORM image"_L1},
        Row{"embedded-image"_L1, Severity::note, "an image is part of the .gltf, and not checked"_L1},
    };
};

inline Severity severity(FindingKind kind) { return tableRow(kind).severity; }

/// Something about a set that a person who uploads it wants to know.
struct Finding {
    FindingKind kind;
    /// The file that it is about, without the set's folder; empty for the set as a whole.
    QString file;
    /// A sentence for the user.
    QString text;

    bool operator==(const Finding&) const = default;
};

using Findings = std::vector<Finding>;

}  // namespace quarlin

#pragma once

#include "enumeration.h"

#include <QString>

#include <vector>

namespace quarlin {

/// How bad a finding is: worth knowing, likely not meant, or bound to fail.
enum class Severity { note, warning, error };

template <>
struct EnumerationTable<Severity> {
    struct Row {
        QLatin1StringView rawValue, title;
    };
    static constexpr std::array rows{
        Row{QLatin1StringView("note"), QLatin1StringView("note")},
        Row{QLatin1StringView("warning"), QLatin1StringView("warning")},
        Row{QLatin1StringView("error"), QLatin1StringView("error")},
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
        Row{QLatin1StringView("unreadable-folder"), Severity::error,
            QLatin1StringView("the folder can't be read")},
        Row{QLatin1StringView("no-set"), Severity::error,
            QLatin1StringView("the folder holds neither a .gltf nor images with the names of a set")},
        Row{QLatin1StringView("unreadable-document"), Severity::error,
            QLatin1StringView("the .gltf can't be read")},
        Row{QLatin1StringView("invalid-json"), Severity::error, QLatin1StringView("the .gltf is no JSON")},
        Row{QLatin1StringView("invalid-gltf"), Severity::error,
            QLatin1StringView(
                "the .gltf is no glTF 2.0, has no material, or refers to what it does not hold")},
        Row{QLatin1StringView("outside-reference"), Severity::error,
            QLatin1StringView("an image is referred to that lies outside the folder")},
        Row{QLatin1StringView("missing-image"), Severity::error, QLatin1StringView("an image is missing")},
        Row{QLatin1StringView("undecodable-image"), Severity::error,
            QLatin1StringView("a file is no whole, intact image")},
        Row{QLatin1StringView("wrong-format"), Severity::error,
            QLatin1StringView("an image is neither PNG nor JPEG, or another one than its name says")},
        Row{QLatin1StringView("wrong-channels"), Severity::error,
            QLatin1StringView("an ORM or normal map is grey, so that all its channels are the same")},
        Row{QLatin1StringView("occlusion-not-orm"), Severity::error,
            QLatin1StringView("occlusion is another image than metallic and roughness")},
        Row{QLatin1StringView("wrong-depth"), Severity::warning,
            QLatin1StringView("an image has other than 8 bits per channel")},
        Row{QLatin1StringView("indexed-color"), Severity::warning,
            QLatin1StringView("an image has a palette instead of channels")},
        Row{QLatin1StringView("not-power-of-two"), Severity::warning,
            QLatin1StringView("a side is no power of two, so that the image is rescaled on upload")},
        Row{QLatin1StringView("too-large"), Severity::warning,
            QLatin1StringView(
                "a side is longer than 2048 pixels, so that the image is scaled down on upload")},
        Row{QLatin1StringView("different-sizes"), Severity::warning,
            QLatin1StringView("the maps of a material are of different sizes")},
        Row{QLatin1StringView("ignored-alpha"), Severity::warning,
            QLatin1StringView("the base colour is transparent in places, and the material is opaque")},
        Row{QLatin1StringView("normal-inverted"), Severity::warning,
            QLatin1StringView("the green of a normal map looks inverted (DirectX)")},
        Row{QLatin1StringView("normal-not-unit"), Severity::warning,
            QLatin1StringView("many normals of a normal map are not of length 1")},
        Row{QLatin1StringView("normal-inward"), Severity::warning,
            QLatin1StringView("normals of a normal map point into the surface")},
        Row{QLatin1StringView("name-cut"), Severity::warning,
            QLatin1StringView("the material's name is longer than the 63 bytes of an inventory name")},
        Row{QLatin1StringView("file-name-cut"), Severity::note,
            QLatin1StringView(
                "the name of an image is longer than that, and is cut when it is uploaded alone")},
        Row{QLatin1StringView("normal-green-down"), Severity::note,
            QLatin1StringView("the green of a generated normal map points down")},
        Row{QLatin1StringView("no-base-color"), Severity::note,
            QLatin1StringView("a material has no base colour image")},
        Row{QLatin1StringView("no-orm"), Severity::note, QLatin1StringView("a material has no ORM image")},
        Row{QLatin1StringView("embedded-image"), Severity::note,
            QLatin1StringView("an image is part of the .gltf, and not checked")},
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

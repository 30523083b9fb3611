#pragma once

#include "model/enumeration.h"

#include <QString>

#include <vector>

namespace quarlin {

using namespace Qt::StringLiterals;

/// How bad a finding is: worth knowing, probably a mistake, or certain to fail.
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
    invalidGLB,
    requiredExtension,
    webpTexture,
    invalidAlphaMode,
    invalidFactor,
    cmykImage,
    factorOff,
    otherTexCoord,
    grayORM,
    blackOcclusion,
    sharedImage,
    normalAsColor,
    normalReversed,
};

template <>
struct EnumerationTable<FindingKind> {
    struct Row {
        QLatin1StringView rawValue;
        Severity severity;
        /// A clause without a full stop. The help lists it, and the text of a finding begins with it.
        QLatin1StringView title;
    };
    static constexpr std::array rows{
        Row{"unreadable-folder"_L1, Severity::error, "the folder can't be read"_L1},
        Row{"no-set"_L1, Severity::error,
            "the folder contains neither a .gltf nor images with the names of an exported set"_L1},
        Row{"unreadable-document"_L1, Severity::error, "the document can't be read"_L1},
        Row{"invalid-json"_L1, Severity::error, "the .gltf is not valid JSON"_L1},
        Row{"invalid-gltf"_L1, Severity::error, "the .gltf does not describe a glTF 2.0 material"_L1},
        Row{"outside-reference"_L1, Severity::error, "the .gltf refers to an image outside the folder"_L1},
        Row{"missing-image"_L1, Severity::error, "the image is missing or can't be read"_L1},
        Row{"undecodable-image"_L1, Severity::error, "the file is not a complete, undamaged image"_L1},
        Row{"wrong-format"_L1, Severity::error,
            "the image is neither PNG nor JPEG, or its name says otherwise"_L1},
        Row{"wrong-channels"_L1, Severity::error,
            "the ORM or normal map is gray: red, green and blue are the same"_L1},
        Row{"occlusion-not-orm"_L1, Severity::error,
            "occlusion has an image of its own, but only the red channel of the ORM image is uploaded"_L1},
        Row{"wrong-depth"_L1, Severity::warning, "the image does not have 8 bits per channel"_L1},
        Row{"indexed-color"_L1, Severity::warning,
            "the image has a palette of at most 256 colors instead of channels"_L1},
        Row{"not-power-of-two"_L1, Severity::warning,
            "a side is not a power of two, so the image is rescaled on upload"_L1},
        Row{"too-large"_L1, Severity::warning,
            "a side is longer than 2048 pixels, so the image is scaled down on upload"_L1},
        Row{"different-sizes"_L1, Severity::warning, "the images of the material have different sizes"_L1},
        Row{"ignored-alpha"_L1, Severity::warning,
            "the base color is transparent in places, but the material is opaque and ignores alpha"_L1},
        Row{"normal-inverted"_L1, Severity::warning,
            "green looks inverted: the normal map fits a surface if green points down, as in DirectX, but in "
            "glTF it points up"_L1},
        Row{"normal-not-unit"_L1, Severity::warning,
            "many normals do not have length 1, so this may not be a normal map, or it was edited as a "
            "picture"_L1},
        Row{"normal-inward"_L1, Severity::warning,
            "normals point into the surface, as their blue is below 128"_L1},
        Row{"name-cut"_L1, Severity::warning,
            "the material's name is longer than the 63 bytes of an inventory name, and is cut"_L1},
        Row{"file-name-cut"_L1, Severity::note,
            "the image's name is longer than the 63 bytes of an inventory name, and is cut if the image is "
            "uploaded alone"_L1},
        Row{"normal-green-down"_L1, Severity::note,
            "green points down in the generated normal map, so export it with Flip Green if light seems to "
            "come from below (other generated sets here may be alike)"_L1},
        Row{"no-base-color"_L1, Severity::note, "the material has no base color image"_L1},
        Row{"no-orm"_L1, Severity::note, "the material has no ORM image"_L1},
        Row{"embedded-image"_L1, Severity::note,
            "an image is part of a buffer that is a file of its own, and is not checked"_L1},
        Row{"invalid-glb"_L1, Severity::error, "the .glb is damaged, or not of version 2"_L1},
        Row{"required-extension"_L1, Severity::error,
            "the document requires an extension that the viewer does not know"_L1},
        Row{"webp-texture"_L1, Severity::error,
            "the images are WebP (EXT_texture_webp), which the viewer does not read"_L1},
        Row{"invalid-alpha-mode"_L1, Severity::error,
            "the alpha mode is not one of OPAQUE, MASK and BLEND"_L1},
        Row{"invalid-factor"_L1, Severity::error, "a factor is out of its range"_L1},
        Row{"cmyk-image"_L1, Severity::error,
            "the image has the four inks of print (CMYK) in place of red, green and blue"_L1},
        Row{"factor-off"_L1, Severity::warning, "a factor of zero switches a texture off"_L1},
        Row{"other-tex-coord"_L1, Severity::warning,
            "a texture uses another set of texture coordinates than the first, which the viewer alone reads"_L1},
        Row{"gray-orm"_L1, Severity::warning,
            "red, green and blue of the ORM image are the same, so it may be a map for a single channel"_L1},
        Row{"black-occlusion"_L1, Severity::warning,
            "the red of the ORM image is black everywhere, so no light from around reaches the surface"_L1},
        Row{"shared-image"_L1, Severity::warning, "the same image is used for different purposes"_L1},
        Row{"normal-as-color"_L1, Severity::warning, "the base color looks like a normal map"_L1},
        Row{"normal-reversed"_L1, Severity::warning,
            "red and green both look inverted: where the ORM image says that a place is shaded, the normal "
            "map "
            "has a bump"_L1},
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

/// A finding whose text is the title of `kind` as a sentence, followed by `detail`, a clause, where there is
/// one.
Finding findingOf(FindingKind kind, const QString& file, const QString& detail = {});

}  // namespace quarlin

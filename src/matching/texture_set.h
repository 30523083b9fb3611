#pragma once

#include "matching/texture_files.h"
#include "model/texture_slot_kind.h"

#include <map>
#include <vector>

namespace quarlin {

/// The files of one material, matched to slots by their names.
struct TextureSet {
    /// The material's name: the text before the suffixes, or the folder's name if there is none.
    QString material;
    std::map<TextureSlotKind, QString> files;
    /// The file of the roughness slot is a gloss map.
    bool roughnessIsGloss = false;
    /// The file of the normal slot is for DirectX: its green points down.
    bool normalIsDirectX = false;
    /// Which two files match the same slot; empty if no two do.
    QString ambiguity;
};

/// A file that belongs to no set, and why.
struct LeftOutFile {
    QString path;
    QString reason;
};

struct MatchedTextures {
    /// In the order of their first files.
    std::vector<TextureSet> sets;
    std::vector<LeftOutFile> leftOut;
};

/// Matches the files of a folder to the slots of its materials. If one normal map is for OpenGL and another
/// for DirectX, the one for OpenGL is used, which is also how glTF has it. Any other two files for one slot
/// make the set ambiguous.
MatchedTextures matchTextures(const TextureFolder& folder);

}  // namespace quarlin

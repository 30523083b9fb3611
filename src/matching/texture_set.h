#pragma once

#include "matching/texture_files.h"
#include "model/texture_slot_kind.h"

#include <map>
#include <vector>

namespace quarlin {

/// The files of one material, matched to slots by their names.
struct TextureSet {
    /// The material's name: the text before the suffixes, or the folder's name where there is none.
    QString material;
    std::map<TextureSlotKind, QString> files;
    /// The file of the roughness slot holds gloss.
    bool roughnessIsGloss = false;
    /// The file of the normal slot is of the DirectX kind: its green points down.
    bool normalIsDirectX = false;
    /// Why the files can't be told apart: two are for one slot. Empty where they can.
    QString ambiguity;
};

/// A file that goes into no set, and why.
struct LeftOutFile {
    QString path;
    QString reason;
};

struct MatchedTextures {
    /// Sorted by the first file of each.
    std::vector<TextureSet> sets;
    std::vector<LeftOutFile> leftOut;
};

/// Matches the files of a folder to the slots of its materials. Of two normal maps that name their kinds, the
/// OpenGL one is taken, which is the kind of glTF; any other two files for one slot make the set ambiguous.
MatchedTextures matchTextures(const TextureFolder& folder);

}  // namespace quarlin

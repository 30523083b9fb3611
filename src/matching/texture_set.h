#pragma once

#include "matching/material_input.h"
#include "matching/texture_files.h"
#include "matching/texture_rules.h"
#include "matching/unused_file.h"

#include <QStringList>

#include <vector>

namespace quarlin {

/// The files of one material, matched to slots by their names.
struct TextureSet {
    /// The material's name: the text before the maps, or the folder's name if there is none.
    QString material;
    MaterialInputPaths files;
    /// The file of the roughness slot holds gloss.
    bool roughnessIsGloss = false;
    /// The file of the normal slot is for DirectX: its green points down.
    bool normalIsDirectX = false;
    /// Why the set can't be made, as far as the names show; empty if it can.
    QString refusal;
};

struct MatchedTextures {
    /// In the order of their first files.
    std::vector<TextureSet> sets;
    std::vector<UnusedFile> unused;
};

/// Matches the files of a folder to the slots of its materials. Every file is in a set or unused.
MatchedTextures matchTextures(const TextureFolder& folder, const TextureRules& rules);

/// The pictures of a folder that maps can be generated from.
struct BaseColors {
    QStringList files;
    std::vector<UnusedFile> unused;
};

/// The base color of each material of a folder, and the files that belong to no material.
BaseColors findBaseColors(const TextureFolder& folder, const TextureRules& rules);

}  // namespace quarlin

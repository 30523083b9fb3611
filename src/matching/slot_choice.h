#pragma once

#include "matching/texture_family.h"
#include "matching/texture_preference.h"

namespace quarlin {

/// A file that can fill a slot.
struct SlotCandidate {
    const FamilyMember* member = nullptr;
    MapUse use;
};

/// Whether `left` is used rather than `right`, and which difference decides that, as a clause about the file
/// that is used.
struct SlotChoice {
    bool isLeft = true;
    QString reason;
};

/// Chooses between two files for the same slot: a file in one piece, a file whose name says what it is, a map
/// of its own, the larger one, a lossless one, one for OpenGL, roughness, the newer version, the first
/// variant, the first name; `preference` turns some of these around.
SlotChoice chooseForSlot(const SlotCandidate& left, const SlotCandidate& right,
                         const TexturePreference& preference);

}  // namespace quarlin

#pragma once

#include "model/texture_asset.h"
#include "model/texture_slot_kind.h"

#include <map>

namespace quarlin {

/// The loaded textures of a material.
using TextureMap = std::map<TextureSlotKind, TextureAsset>;

}  // namespace quarlin

#pragma once

#include "model/texture_slot_kind.h"

#include <QString>

#include <map>
#include <optional>

namespace quarlin {

/// The file that fills a slot of a material.
struct MaterialInput {
    /// May be relative.
    QString path;
    /// The channel of the file that is used as it is; nothing for the whole picture, of which occlusion,
    /// roughness and metallic use the luminance.
    std::optional<TextureChannel> channel;

    bool operator==(const MaterialInput&) const = default;
};

using MaterialInputPaths = std::map<TextureSlotKind, MaterialInput>;

}  // namespace quarlin

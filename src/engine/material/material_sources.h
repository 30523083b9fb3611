#pragma once

#include "engine/base/texture_source.h"
#include "imaging/base/pixel_size.h"
#include "imaging/pixels/row_reader.h"
#include "model/texture_asset.h"
#include "model/texture_slot_kind.h"

#include <map>
#include <memory>
#include <set>

namespace quarlin {

/// What the textures of a material are read from.
class MaterialSources {
public:
    explicit MaterialSources(const TextureMap& textures);

    /// The rows of the texture of `slot` at `size`; a null pointer when none is loaded. Throws as
    /// `TextureSource` does.
    std::unique_ptr<RowReader> open(TextureSlotKind slot, PixelSize size) const;

    /// The pixels in memory of the texture of `slot` if they have this size, else a null image.
    QImage loadedImage(TextureSlotKind slot, PixelSize size) const;

    /// Whether the texture of `slot` is one channel of a file: see `TextureAsset::channel`.
    bool isChannel(TextureSlotKind slot) const { return m_channels.contains(slot); }

    /// Whether a texture was opened but not loaded.
    bool areUnloaded() const { return m_areUnloaded; }

    /// Reads all files that are read to their end. Throws what the first one throws.
    void expectReadable() const;

private:
    std::map<TextureSlotKind, TextureSource> m_sources;
    std::set<TextureSlotKind> m_channels;
    bool m_areUnloaded = false;
};

}  // namespace quarlin

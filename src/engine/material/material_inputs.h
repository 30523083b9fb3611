#pragma once

#include "imaging/base/outcome.h"
#include "imaging/base/pixel_size.h"
#include "imaging/png/png_file.h"
#include "model/conversion_settings.h"
#include "model/material_set.h"
#include "model/texture_asset.h"
#include "model/texture_slot_kind.h"

#include <map>
#include <set>

namespace quarlin {

/// The textures of a material at one size. They are rendered side by side on all cores, but a texture that
/// can't be rendered is reported only when it is asked for, so that the caller decides which failure comes
/// first.
class MaterialInputs {
public:
    /// Renders those of `slots` that `textures` holds.
    MaterialInputs(const TextureMap& textures, const std::vector<TextureSlotKind>& slots, PixelSize size);

    /// The texture of `slot`, or a null pointer when none is loaded. Throws what rendering it threw.
    const QImage* texture(TextureSlotKind slot) const;

    /// Whether the texture of `slot` is one channel of a file: see `TextureAsset::channel`.
    bool isChannel(TextureSlotKind slot) const { return m_channels.contains(slot); }

    PixelSize size() const { return m_size; }

private:
    PixelSize m_size;
    std::map<TextureSlotKind, Outcome<QImage>> m_rendered;
    std::set<TextureSlotKind> m_channels;
};

/// The rows of the ORM image of the inputs, made as they are read. Throws the failure of the first of
/// occlusion, roughness and metallic that has one. `inputs` must outlive the source.
RowSource ormRows(const MaterialInputs& inputs, const ConversionSettings& settings);

/// The rows of a normal map made opaque and, as `settings` say, flipped. `normal` must outlive the source.
RowSource conditionedNormalRows(const QImage& normal, const ConversionSettings& settings);

/// The rows of an image of the set. The texture of the image itself must be loaded; the ORM image needs none.
/// Throws what rendering its textures threw. `inputs` must outlive the source.
RowSource imageRows(MaterialImage image, const MaterialInputs& inputs, const ConversionSettings& settings);

/// All rows of a source as one image.
QImage imageOf(PixelSize size, const RowSource& rows);

}  // namespace quarlin

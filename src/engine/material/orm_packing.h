#pragma once

#include <array>
#include <cstdint>

namespace quarlin {

/// Where one channel of an ORM image comes from.
struct OrmChannel {
    /// The texture's pixels as premultiplied RGBA, whose luminance is used; null for no texture.
    const std::uint8_t* pixels = nullptr;
    /// Whether the pixels are one channel of a file in gray, whose samples are used as they are: the
    /// luminance of some grays is one less (see `luminanceByte`).
    bool isChannel = false;
    /// The value without a texture, never inverted.
    std::uint8_t fallback = 0;
    /// Whether the value is subtracted from 255.
    bool inverted = false;
};

/// Occlusion, roughness and metallic.
using OrmChannels = std::array<OrmChannel, 3>;

/// Packs `count` pixels from pixel `first` on into opaque RGBA.
void packOrm(const OrmChannels& channels, std::int64_t first, std::int64_t count, std::uint8_t* output);

namespace plain {

/// `packOrm` pixel by pixel, as the formulas are written.
void packOrm(const OrmChannels& channels, std::int64_t first, std::int64_t count, std::uint8_t* output);

}  // namespace plain

}  // namespace quarlin

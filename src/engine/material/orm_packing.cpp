#include "engine/material/orm_packing.h"

#include "imaging/pixels/luminance.h"
#include "imaging/pixels/pixel_image.h"

#include <algorithm>

// Compiles this file once for every instruction set.
#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "engine/material/orm_packing.cpp"
#include <hwy/foreach_target.h>
#include <hwy/highway.h>

#include "imaging/pixels/color_lanes-inl.h"

HWY_BEFORE_NAMESPACE();
namespace quarlin::HWY_NAMESPACE {

/// The channel's bytes for as many pixels as a vector has lanes.
HWY_INLINE HWY_ATTR Integer channelValues(const OrmChannel& channel, std::int64_t pixel) {
    const Integers integers;
    if (channel.pixels == nullptr) {
        return hn::Set(integers, channel.fallback);
    }
    const std::uint8_t* pixels = channel.pixels + pixel * bytesPerPixel;
    const Integer gray =
        channel.isChannel ? loadRed(pixels) : hn::DemoteTo(integers, hn::Trunc(luminance(loadColor(pixels))));
    // 255 - v is v with every bit inverted.
    return channel.inverted ? hn::Xor(gray, hn::Set(integers, 255)) : gray;
}

HWY_ATTR void packOrm(const OrmChannels& channels, std::int64_t first, std::int64_t count,
                      std::uint8_t* output) {
    const Integers integers;
    const auto lanes = static_cast<std::int64_t>(hn::Lanes(integers));
    std::int64_t index = 0;
    for (; index + lanes <= count; index += lanes) {
        const Integer occlusion = channelValues(channels[0], first + index);
        const Integer roughness = channelValues(channels[1], first + index);
        const Integer metallic = channelValues(channels[2], first + index);
        hn::StoreU(packed(occlusion, roughness, metallic), integers,
                   reinterpret_cast<std::int32_t*>(output + index * bytesPerPixel));
    }
    plain::packOrm(channels, first + index, count - index, output + index * bytesPerPixel);
}

}  // namespace quarlin::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#if HWY_ONCE

namespace quarlin {

HWY_EXPORT(packOrm);

void packOrm(const OrmChannels& channels, std::int64_t first, std::int64_t count, std::uint8_t* output) {
    HWY_DYNAMIC_DISPATCH(packOrm)(channels, first, count, output);
}

void plain::packOrm(const OrmChannels& channels, std::int64_t first, std::int64_t count,
                    std::uint8_t* output) {
    for (std::int64_t index = 0; index < count; ++index) {
        for (std::size_t channel = 0; channel < channels.size(); ++channel) {
            const OrmChannel& source = channels[channel];
            std::uint8_t value = source.fallback;
            if (source.pixels != nullptr) {
                const std::uint8_t* pixel = source.pixels + (first + index) * bytesPerPixel;
                value = source.isChannel ? *pixel : luminanceByte(pixel);
                value = source.inverted ? static_cast<std::uint8_t>(255 - value) : value;
            }
            *output++ = value;
        }
        *output++ = 255;
    }
}

}  // namespace quarlin

#endif

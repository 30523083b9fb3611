#include "orm_packing.h"

#include "luminance.h"
#include "pixel_image.h"

namespace quarlin {

void packOrm(const OrmChannels& channels, std::int64_t first, std::int64_t count, std::uint8_t* output) {
    for (std::int64_t index = 0; index < count; ++index) {
        output[index * bytesPerPixel + 3] = 255;
    }
    for (std::size_t channel = 0; channel < channels.size(); ++channel) {
        const OrmChannel& source = channels[channel];
        std::uint8_t* place = output + channel;
        if (source.pixels == nullptr) {
            for (std::int64_t index = 0; index < count; ++index) {
                place[index * bytesPerPixel] = source.fallback;
            }
            continue;
        }
        const std::uint8_t* pixel = source.pixels + first * bytesPerPixel;
        const std::uint8_t flip = source.inverted ? 255 : 0;
        for (std::int64_t index = 0; index < count; ++index) {
            // 255 - v is v with every bit turned over.
            place[index * bytesPerPixel] = static_cast<std::uint8_t>(luminanceByte(pixel) ^ flip);
            pixel += bytesPerPixel;
        }
    }
}

}  // namespace quarlin

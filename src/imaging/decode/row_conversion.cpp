#include "imaging/decode/row_conversion.h"

#include "imaging/decode/convert_pixels.h"

#include <algorithm>
#include <limits>
#include <vector>

namespace quarlin {

namespace {

template <typename Sample, int bands>
RowStore<Sample> storeOf(StoredAlpha alpha) {
    if (bands % 2 != 0 || alpha == StoredAlpha::straight) {
        return storePixels<Sample, bands>;
    }
    return [](const Sample* input, std::int64_t count, std::uint8_t* output) {
        spreadPixels<Sample, bands>(input, count, output);
        for (std::int64_t index = 0; index < count; ++index) {
            std::uint8_t* pixel = output + index * bytesPerPixel;
            // No color is brighter than its alpha allows, whatever a file may say.
            std::transform(pixel, pixel + 3, pixel,
                           [&](std::uint8_t color) { return std::min(color, pixel[3]); });
        }
    };
}

/// `count` pixels of `bands` samples with the colors divided by their alpha, which is the last sample.
template <typename Sample>
std::vector<Sample> straightened(const Sample* input, std::int64_t count, int bands) {
    constexpr std::uint64_t full = std::numeric_limits<Sample>::max();
    std::vector<Sample> samples(input, input + count * bands);
    for (auto pixel = samples.begin(); pixel != samples.end(); pixel += bands) {
        const std::uint64_t alpha = *(pixel + bands - 1);
        if (alpha > 0) {
            std::transform(pixel, pixel + bands - 1, pixel, [&](Sample color) {
                return static_cast<Sample>(std::min(full, (color * full + alpha / 2) / alpha));
            });
        }
    }
    return samples;
}

}  // namespace

template <typename Sample>
RowStore<Sample> storeAsTheyAre(int bands, StoredAlpha alpha) {
    switch (bands) {
        case 1:
            return storeOf<Sample, 1>(alpha);
        case 2:
            return storeOf<Sample, 2>(alpha);
        case 3:
            return storeOf<Sample, 3>(alpha);
        case 4:
            return storeOf<Sample, 4>(alpha);
        default:
            return {};
    }
}

template <typename Sample>
RowStore<Sample> storeConverted(ColorConversion<Sample> conversion, int bands, bool hasAlpha,
                                StoredAlpha alpha) {
    return
        [=, convert = std::move(conversion)](const Sample* input, std::int64_t count, std::uint8_t* output) {
            if (hasAlpha && alpha == StoredAlpha::premultiplied) {
                convert(straightened(input, count, bands).data(), count, output);
            } else {
                convert(input, count, output);
            }
            for (std::int64_t index = 0; index < count; ++index) {
                output[index * bytesPerPixel + 3] =
                    hasAlpha ? sampleToByte(input[index * bands + bands - 1]) : std::uint8_t{255};
            }
            if (hasAlpha) {
                premultiplyPixels(output, count);
            }
        };
}

template RowStore<std::uint8_t> storeAsTheyAre(int, StoredAlpha);
template RowStore<std::uint16_t> storeAsTheyAre(int, StoredAlpha);
template RowStore<std::uint8_t> storeConverted(ColorConversion<std::uint8_t>, int, bool, StoredAlpha);
template RowStore<std::uint16_t> storeConverted(ColorConversion<std::uint16_t>, int, bool, StoredAlpha);

}  // namespace quarlin

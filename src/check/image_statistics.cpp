#include "check/image_statistics.h"

#include "imaging/pixels/image_view.h"
#include "imaging/pixels/pixel_image.h"

#include <algorithm>

namespace quarlin {

ImageStatistics imageStatistics(const QImage& image) {
    ImageStatistics statistics;
    std::array<std::int64_t, 4> sums{};
    const ImageView view(image);
    const auto count = static_cast<std::int64_t>(pixelCount(view.width, view.height));
    const std::uint8_t* pixel = view.pixels;
    for (std::int64_t index = 0; index < count; ++index, pixel += bytesPerPixel) {
        for (std::size_t channel = 0; channel < sums.size(); ++channel) {
            statistics.least[channel] = std::min(statistics.least[channel], pixel[channel]);
            statistics.greatest[channel] = std::max(statistics.greatest[channel], pixel[channel]);
            sums[channel] += pixel[channel];
        }
        statistics.isGray &= pixel[0] == pixel[1] && pixel[0] == pixel[2];
    }
    for (std::size_t channel = 0; channel < sums.size(); ++channel) {
        statistics.mean[channel] = static_cast<double>(sums[channel]) / static_cast<double>(count);
    }
    return statistics;
}

}  // namespace quarlin

#pragma once

#include "imaging/pixels/image_view.h"

#include <span>
#include <vector>

namespace quarlin {

/// How one output sample is made from a row or column of input samples: the samples from `first` on, each
/// times its weight. The weights are multiples of 2^-24 and add up to exactly 1.
struct FilterTaps {
    std::int64_t first = 0;
    std::vector<double> weights;
};

/// The taps of a three-lobed Lanczos filter that scales `inputSize` samples to `outputSize`. To scale down,
/// the filter is widened to the distance of the output samples. Taps beyond the edge are dropped, and the
/// others are scaled up to a sum of 1.
std::vector<FilterTaps> lanczosTaps(std::int64_t inputSize, std::int64_t outputSize);

/// Scales `source` to `width` x `height` pixels and writes them to `output`, `width * height * 4` bytes. It
/// works on the encoded (non-linear) values, and no color comes out larger than its alpha.
///
/// Every sum is exact (weights are multiples of 2^-24, values between the passes multiples of 2^-14). So
/// neither the order of additions nor the number of threads matters, and a mirrored image gives the mirrored
/// result.
void resample(const ImageView& source, std::int64_t width, std::int64_t height,
              std::span<std::uint8_t> output);

}  // namespace quarlin

#pragma once

#include "imaging/pixels/image_view.h"

#include <span>
#include <vector>

namespace quarlin {

/// The weights with which one row (or column) of `size` samples gives one output sample: samples from `first`
/// on, each with its weight. The weights are multiples of 2^-24 and add up to exactly 1.
struct FilterTaps {
    std::int64_t first = 0;
    std::vector<double> weights;
};

/// The taps of a three-lobed Lanczos filter that stretches `inputSize` samples to `outputSize`. When it
/// shrinks, the filter is widened to the output's sample distance. Taps beyond the edge are left out, and the
/// others make up for them.
std::vector<FilterTaps> lanczosTaps(std::int64_t inputSize, std::int64_t outputSize);

/// Stretches `source` to `width` x `height` pixels and writes them to `output`, `width * height * 4` bytes.
/// It works in the encoded (non-linear) values, and no color comes out larger than its alpha.
///
/// Every sum is exact (weights are multiples of 2^-24, the values between the passes of 2^-14), so that
/// neither the order of additions nor the number of threads matters, and a mirrored image gives the mirrored
/// result.
void resample(const ImageView& source, std::int64_t width, std::int64_t height,
              std::span<std::uint8_t> output);

}  // namespace quarlin

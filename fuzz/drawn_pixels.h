#pragma once

#include <cstdint>
#include <vector>

class FuzzedDataProvider;

namespace quarlin::fuzz {

/// The kind of pixels in a drawing.
enum class PixelKind { gray, opaque, translucent, any, kMaxValue = any };

/// A premultiplied RGBA drawing of single pixels, runs, ramps and repetitions of what was drawn before, the
/// patterns that a compressor uses.
struct Drawing {
    std::int64_t width = 1;
    std::int64_t height = 1;
    PixelKind kind = PixelKind::gray;
    std::vector<std::uint8_t> pixels;
};

Drawing draw(FuzzedDataProvider& input);

}  // namespace quarlin::fuzz

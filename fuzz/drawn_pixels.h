#pragma once

#include <cstdint>
#include <vector>

class FuzzedDataProvider;

namespace quarlin::fuzz {

/// What the pixels of a drawing are made of.
enum class PixelKind { gray, opaque, translucent, any, kMaxValue = any };

/// A premultiplied RGBA drawing of single pixels, runs, ramps and repetitions of what was drawn before, which
/// is what a compressor lives on.
struct Drawing {
    std::int64_t width = 1;
    std::int64_t height = 1;
    PixelKind kind = PixelKind::gray;
    std::vector<std::uint8_t> pixels;
};

Drawing draw(FuzzedDataProvider& input);

}  // namespace quarlin::fuzz

#include "drawn_pixels.h"

#include <fuzzer/FuzzedDataProvider.h>

#include <algorithm>
#include <array>
#include <cstddef>

namespace quarlin::fuzz {

namespace {

using Pixel = std::array<std::uint8_t, 4>;

Pixel takePixel(FuzzedDataProvider& input, PixelKind kind) {
    const auto byte = [&](int most = 255) {
        return static_cast<std::uint8_t>(input.ConsumeIntegralInRange<int>(0, most));
    };
    if (kind == PixelKind::gray) {
        const std::uint8_t gray = byte();
        return {gray, gray, gray, 255};
    }
    const std::uint8_t alpha = kind == PixelKind::opaque ? std::uint8_t{255} : byte();
    const int most = kind == PixelKind::any ? 255 : alpha;
    return {byte(most), byte(most), byte(most), alpha};
}

/// Mostly short lengths, sometimes long ones.
std::size_t takeLength(FuzzedDataProvider& input) {
    constexpr std::array<std::size_t, 4> most{4, 64, 600, 20'000};
    return input.ConsumeIntegralInRange<std::size_t>(1, input.PickValueInArray(most));
}

enum class Stroke { pixel, run, repetition, ramp, kMaxValue = ramp };

}  // namespace

Drawing draw(FuzzedDataProvider& input) {
    Drawing drawing;
    drawing.kind = input.ConsumeEnum<PixelKind>();
    // Wide rows give several strips with few pixels.
    constexpr std::array<std::int64_t, 12> widest{3, 10, 20, 30, 40, 50, 60, 70, 100, 300, 1000, 150'000};
    drawing.width = input.ConsumeIntegralInRange<std::int64_t>(1, input.PickValueInArray(widest));
    drawing.height = input.ConsumeIntegralInRange<std::int64_t>(
        1, std::clamp<std::int64_t>(20'000 / drawing.width, 3, 100));
    std::vector<Pixel> pixels;
    const auto count = static_cast<std::size_t>(drawing.width * drawing.height);
    while (pixels.size() < count) {
        const std::size_t length = std::min(takeLength(input), count - pixels.size());
        const Stroke stroke = input.remaining_bytes() == 0 ? Stroke::run : input.ConsumeEnum<Stroke>();
        const Pixel pixel = takePixel(input, drawing.kind);
        const std::size_t distance = pixels.empty() ? 0
                                                    : input.ConsumeIntegralInRange<std::size_t>(
                                                          0, std::min<std::size_t>(pixels.size(), 40'000));
        for (std::size_t index = 0; index < length; ++index) {
            if (stroke == Stroke::repetition && distance > 0) {
                pixels.push_back(pixels[pixels.size() - distance]);
            } else if (stroke == Stroke::ramp && pixel[3] == 255) {
                const auto step = static_cast<std::uint8_t>(index);
                pixels.push_back({static_cast<std::uint8_t>(pixel[0] + step),
                                  static_cast<std::uint8_t>(pixel[1] + step),
                                  static_cast<std::uint8_t>(pixel[2] + step), 255});
            } else {
                pixels.push_back(pixel);
                if (stroke == Stroke::pixel) {
                    break;
                }
            }
        }
    }
    for (const Pixel& pixel : pixels) {
        drawing.pixels.insert(drawing.pixels.end(), pixel.begin(), pixel.end());
    }
    return drawing;
}

}  // namespace quarlin::fuzz

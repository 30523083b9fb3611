#pragma once

#include <cstddef>
#include <cstdint>

namespace quarlin {

/// Width and height in pixels.
struct PixelSize {
    std::int64_t width = 0;
    std::int64_t height = 0;

    bool operator==(const PixelSize&) const = default;
};

/// The number of pixels of a `width` x `height` image, as containers count.
constexpr std::size_t pixelCount(std::int64_t width, std::int64_t height) {
    return static_cast<std::size_t>(width) * static_cast<std::size_t>(height);
}

/// The most pixels that an image may have (32768 x 32768, four bytes each), and that one side may have.
inline constexpr std::int64_t maximumPixels = std::int64_t{1} << 30;
inline constexpr std::int64_t maximumSide = std::int64_t{1} << 20;

/// Whether an image may have `width` x `height` pixels.
constexpr bool isUsableSize(std::int64_t width, std::int64_t height) {
    return width > 0 && height > 0 && width <= maximumSide && height <= maximumSide &&
           width <= maximumPixels / height;
}

/// Whether a file of `fileSize` bytes can be expected to hold `width` x `height` pixels. A header can claim
/// any size, and believing it costs memory. Sizes up to 8192 x 8192 are believed; larger ones need a byte for
/// every 16384 pixels. PNG, GIF, BMP and JPEG never pack pixels that densely, and other formats only where a
/// picture is empty.
constexpr bool isPlausibleSize(std::int64_t width, std::int64_t height, std::int64_t fileSize) {
    constexpr std::int64_t pixelsBelieved = std::int64_t{1} << 26;
    constexpr std::int64_t pixelsPerByte = std::int64_t{1} << 14;
    return isUsableSize(width, height) &&
           (width <= pixelsBelieved / height || width * height / pixelsPerByte <= fileSize);
}

}  // namespace quarlin

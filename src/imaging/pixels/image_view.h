#pragma once

#include "imaging/pixels/pixel_image.h"

#include <QImage>

namespace quarlin {

/// Pixels in the form of a `PixelImage` that somebody else owns.
struct ImageView {
    std::int64_t width = 0;
    std::int64_t height = 0;
    const std::uint8_t* pixels = nullptr;

    ImageView(std::int64_t columns, std::int64_t rows, const std::uint8_t* bytes)
        : width(columns), height(rows), pixels(bytes) {}
    ImageView(const PixelImage& image)  // NOLINT(google-explicit-constructor): a view of the same pixels
        : width(image.width), height(image.height), pixels(image.pixels.data()) {}
    /// `image` is of the format RGBA8888_Premultiplied, whose rows of four-byte pixels have no gaps.
    explicit ImageView(const QImage& image)
        : width(image.width()), height(image.height()), pixels(image.constBits()) {}

    std::int64_t bytesPerRow() const { return width * bytesPerPixel; }
    const std::uint8_t* row(std::int64_t y) const { return pixels + y * bytesPerRow(); }
};

/// The memory form of every decoded or on-screen image, the same as a `PixelImage`'s.
inline constexpr QImage::Format pixelFormat = QImage::Format_RGBA8888_Premultiplied;

/// The most pixels that an image may have (32768 x 32768, four bytes each), and that one side may have.
inline constexpr std::int64_t maximumPixels = std::int64_t{1} << 30;
inline constexpr std::int64_t maximumSide = std::int64_t{1} << 20;

/// Whether `width` x `height` pixels can be held at all.
constexpr bool isUsableSize(std::int64_t width, std::int64_t height) {
    return width > 0 && height > 0 && width <= maximumSide && height <= maximumSide &&
           width <= maximumPixels / height;
}

/// Whether a file of `fileSize` bytes may well hold `width` x `height` pixels. A header can claim any size;
/// up to 8192 x 8192 it is believed, and above as long as there is a byte for every 16384 pixels. PNG, GIF,
/// BMP and JPEG can't be as dense as that; of the others only pictures without any content are.
constexpr bool isPlausibleSize(std::int64_t width, std::int64_t height, std::int64_t fileSize) {
    constexpr std::int64_t pixelsBelieved = std::int64_t{1} << 26;
    constexpr std::int64_t pixelsPerByte = std::int64_t{1} << 14;
    return isUsableSize(width, height) &&
           (width <= pixelsBelieved / height || width * height / pixelsPerByte <= fileSize);
}

}  // namespace quarlin

#pragma once

#include "imaging/pixels/pixel_image.h"

#include <QImage>

namespace quarlin {

/// A view of the pixels of a `PixelImage` or an equivalent `QImage`, which must outlive it.
struct ImageView {
    std::int64_t width = 0;
    std::int64_t height = 0;
    const std::uint8_t* pixels = nullptr;

    ImageView(std::int64_t columns, std::int64_t rows, const std::uint8_t* bytes)
        : width(columns), height(rows), pixels(bytes) {}
    ImageView(const PixelImage& image)  // NOLINT(google-explicit-constructor): a view of the same pixels
        : width(image.width), height(image.height), pixels(image.pixels.data()) {}
    /// The format of `image` is `pixelFormat`, whose rows of four-byte pixels have no padding.
    explicit ImageView(const QImage& image)
        : width(image.width()), height(image.height()), pixels(image.constBits()) {}

    std::int64_t bytesPerRow() const { return width * bytesPerPixel; }
    const std::uint8_t* row(std::int64_t y) const { return pixels + y * bytesPerRow(); }
};

/// The format of every decoded or on-screen image, the same as that of `PixelImage`.
inline constexpr QImage::Format pixelFormat = QImage::Format_RGBA8888_Premultiplied;

}  // namespace quarlin

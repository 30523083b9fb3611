#pragma once

#include "imaging/base/pixel_size.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <type_traits>
#include <utility>
#include <vector>

namespace quarlin {

/// The standard allocator, except that elements without a value stay uninitialized: a buffer that will be
/// overwritten is not cleared first.
template <typename T>
struct UninitializedAllocator : std::allocator<T> {
    template <typename U>
    struct rebind {
        using other = UninitializedAllocator<U>;
    };

    template <typename U>
    void construct(U* place) noexcept(std::is_nothrow_default_constructible_v<U>) {
        ::new (static_cast<void*>(place)) U;
    }
    template <typename U, typename... Args>
    void construct(U* place, Args&&... args) {
        ::new (static_cast<void*>(place)) U(std::forward<Args>(args)...);
    }
};

/// Bytes of pixels. `PixelBuffer(n)` is uninitialized, `PixelBuffer(n, value)` is filled.
using PixelBuffer = std::vector<std::uint8_t, UninitializedAllocator<std::uint8_t>>;

/// The image that all computations work on.
struct PixelImage {
    /// Pixels per row.
    std::int64_t width = 0;
    /// Rows.
    std::int64_t height = 0;
    /// `width * height * 4` bytes: rows from the top, four bytes per pixel in the order R, G, B, A, 8-bit
    /// sRGB with premultiplied alpha.
    PixelBuffer pixels;

    bool operator==(const PixelImage&) const = default;
};

/// The bytes of a pixel.
inline constexpr std::int64_t bytesPerPixel = 4;

/// An image whose every byte is 255.
inline PixelImage opaqueWhite(std::int64_t width, std::int64_t height) {
    return {width, height, PixelBuffer(pixelCount(width, height) * bytesPerPixel, 255)};
}

}  // namespace quarlin

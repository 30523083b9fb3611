#pragma once

#include "imaging/base/row_strips.h"
#include "imaging/pixels/image_view.h"

#include <cstdint>

namespace quarlin {

/// A view of some consecutive rows of an RGBA image of `width` x `height` pixels. The rows must outlive it.
class RowWindow {
public:
    /// `pixels` are those of `rows`.
    RowWindow(std::int64_t width, std::int64_t height, RowRange rows, const std::uint8_t* pixels)
        : m_width(width), m_height(height), m_rows(rows), m_pixels(pixels) {}
    /// All rows of an image.
    explicit RowWindow(const ImageView& image)
        : RowWindow(image.width, image.height, {0, image.height}, image.pixels) {}

    /// The size of the whole image.
    std::int64_t width() const { return m_width; }
    std::int64_t height() const { return m_height; }
    /// The rows that can be read.
    const RowRange& rows() const { return m_rows; }

    /// Row `y` of the image, one of `rows()`.
    const std::uint8_t* row(std::int64_t y) const {
        return m_pixels + (y - m_rows.first) * m_width * bytesPerPixel;
    }

private:
    std::int64_t m_width;
    std::int64_t m_height;
    RowRange m_rows;
    const std::uint8_t* m_pixels;
};

}  // namespace quarlin

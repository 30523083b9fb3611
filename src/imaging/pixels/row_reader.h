#pragma once

#include "imaging/pixels/pixel_image.h"

#include <cassert>
#include <cstdint>

namespace quarlin {

/// The form of the rows that a `RowReader` gives.
enum class RowLayout {
    /// Four bytes per pixel: R, G, B, A, 8-bit sRGB with premultiplied alpha.
    rgba,
};

/// Gives the rows of an image in order, from the top. To be used by one thread at a time.
class RowReader {
public:
    virtual ~RowReader() = default;
    RowReader(const RowReader&) = delete;
    RowReader& operator=(const RowReader&) = delete;

    std::int64_t width() const { return m_width; }
    std::int64_t height() const { return m_height; }
    RowLayout layout() const { return RowLayout::rgba; }
    /// Bytes from one row to the next.
    std::int64_t bytesPerRow() const { return m_width * bytesPerPixel; }
    /// The number of rows that have been read.
    std::int64_t position() const { return m_position; }

    /// Reads the next `count` rows into `rows`, which has room for `count * bytesPerRow()` bytes; there must
    /// be as many left. Throws when the image turns out to be damaged, at the latest with its last row. After
    /// that, the reader can't be used.
    void read(std::int64_t count, std::uint8_t* rows) {
        assert(count >= 0 && count <= m_height - m_position);
        if (count > 0) {
            readRows(count, rows);
            m_position += count;
        }
    }

protected:
    RowReader(std::int64_t width, std::int64_t height) : m_width(width), m_height(height) {}

    /// Does the work of `read`, while `position()` is still what it was before; `count` is at least 1.
    virtual void readRows(std::int64_t count, std::uint8_t* rows) = 0;

private:
    std::int64_t m_width;
    std::int64_t m_height;
    std::int64_t m_position = 0;
};

/// Reads rows without using them, up to row `position`. Throws what the reader throws.
void skipTo(std::int64_t position, RowReader& reader);

/// The same up to the end; does nothing for a null pointer.
inline void skipRest(RowReader* reader) {
    if (reader != nullptr) {
        skipTo(reader->height(), *reader);
    }
}

}  // namespace quarlin

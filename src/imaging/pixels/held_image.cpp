#include "imaging/pixels/held_image.h"

#include "imaging/pixels/image_rows.h"
#include "imaging/pixels/image_view.h"

#include <algorithm>
#include <cstring>
#include <new>

namespace quarlin {

namespace {

QImage newImage(std::int64_t width, std::int64_t height, QImage::Format format) {
    QImage image(static_cast<int>(width), static_cast<int>(height), format);
    if (image.isNull()) {
        throw std::bad_alloc();
    }
    return image;
}

/// Writes the gray of each pixel, one byte. Returns whether all of them are gray and opaque.
bool copyGray(const std::uint8_t* pixels, std::int64_t width, std::uint8_t* grays) {
    std::uint32_t difference = 0;
    for (std::int64_t x = 0; x < width; ++x) {
        const std::uint8_t* pixel = pixels + x * bytesPerPixel;
        const std::uint8_t red = pixel[0];
        difference |= static_cast<std::uint32_t>(red ^ pixel[1]) |
                      static_cast<std::uint32_t>(red ^ pixel[2]) |
                      static_cast<std::uint32_t>(pixel[3] ^ 255U);
        grays[x] = red;
    }
    return difference == 0;
}

/// Rows that have been read already.
struct ReadRows {
    std::int64_t count;
    const std::uint8_t* pixels;
};

/// The image whose first `grayRows` rows are those of `gray`, followed by `read` and what the reader has
/// left.
QImage colorImage(const QImage& gray, std::int64_t grayRows, ReadRows read, RowReader& reader) {
    QImage image = newImage(gray.width(), gray.height(), pixelFormat);
    const std::int64_t bytesPerRow = reader.bytesPerRow();
    std::uint8_t* rows = image.bits();
    ImageRows(gray).read(grayRows, rows);
    rows += grayRows * bytesPerRow;
    rows = std::copy_n(read.pixels, read.count * bytesPerRow, rows);
    reader.read(reader.height() - reader.position(), rows);
    return image;
}

}  // namespace

QImage readHeldImage(RowReader& reader) {
    // The first rows prove that there is something to decode: a header alone may claim any size, and memory
    // for it should not be taken before that.
    constexpr std::int64_t rowsPerStrip = 16;
    const std::int64_t bytesPerRow = reader.bytesPerRow();
    const std::int64_t height = reader.height() - reader.position();
    PixelBuffer strip(static_cast<std::size_t>(std::min(height, rowsPerStrip) * bytesPerRow));
    QImage gray;
    std::uint8_t* grays = nullptr;
    for (std::int64_t first = 0; first < height; first += rowsPerStrip) {
        const std::int64_t count = std::min(rowsPerStrip, height - first);
        reader.read(count, strip.data());
        if (gray.isNull()) {
            gray = newImage(reader.width(), height, QImage::Format_Grayscale8);
            grays = gray.bits();
        }
        for (std::int64_t row = 0; row < count; ++row) {
            const std::uint8_t* pixels = strip.data() + row * bytesPerRow;
            if (!copyGray(pixels, reader.width(), grays + (first + row) * gray.bytesPerLine())) {
                return colorImage(gray, first + row, {count - row, pixels}, reader);
            }
        }
    }
    return gray;
}

}  // namespace quarlin

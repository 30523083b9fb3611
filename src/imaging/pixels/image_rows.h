#pragma once

#include "imaging/pixels/convert_pixels.h"
#include "imaging/pixels/image_view.h"
#include "imaging/pixels/row_reader.h"

#include <QImage>

#include <algorithm>
#include <utility>

namespace quarlin {

/// The rows of an image in memory.
class ImageRows final : public RowReader {
public:
    /// The pixels of `image` must outlive the reader.
    explicit ImageRows(const ImageView& image) : RowReader(image.width, image.height), m_view(image) {}
    /// Shares the pixels of `image`, whose format is `pixelFormat` or `QImage::Format_Grayscale8`.
    explicit ImageRows(QImage image)
        : RowReader(image.width(), image.height()), m_image(std::move(image)), m_view(m_image) {}

private:
    void readRows(std::int64_t count, std::uint8_t* rows) override {
        if (m_image.format() == QImage::Format_Grayscale8) {
            for (std::int64_t row = 0; row < count; ++row) {
                const std::uint8_t* grays = m_image.constScanLine(static_cast<int>(position() + row));
                spreadPixels<std::uint8_t, 1>(grays, width(), rows + row * bytesPerRow());
            }
        } else {
            std::copy(m_view.row(position()), m_view.row(position() + count), rows);
        }
    }

    QImage m_image;
    ImageView m_view;
};

}  // namespace quarlin

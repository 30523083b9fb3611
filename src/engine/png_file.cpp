#include "png_file.h"

#include "atomic_file.h"
#include "texture_processor_error.h"

namespace quarlin {

RowSource rowsOf(const ImageView& image) {
    return [image](RowRange rows, PixelBuffer&) { return image.row(rows.first); };
}

PngEncoder encodePng(std::int64_t width, std::int64_t height, const RowSource& rows) {
    PngEncoder png(width, height);
    const RowBands bands = png.bands();
    forEachInParallel(bands.count(), [&](std::int64_t band) {
        PixelBuffer scratch;
        png.encodeBand(band, rows(bands[band], scratch));
    });
    return png;
}

void writePngFile(const PngEncoder& png, const QUrl& url) {
    AtomicFile file(url);
    if (!file.isOpen()) {
        throw TextureProcessorError::cannotCreatePNG(url);
    }
    if (!png.writeTo([&](QByteArrayView bytes) { return file.write(bytes); }) || !file.commit()) {
        throw TextureProcessorError::cannotWritePNG(url);
    }
}

}  // namespace quarlin

#include "libpng_writer.h"

#include <png.h>

#include <stdexcept>

namespace quarlin::bench {

QByteArray writtenByLibpng(const PixelImage& image, int samples) {
    PixelBuffer packed;
    packed.reserve(pixelCount(image.width, image.height) * static_cast<std::size_t>(samples));
    for (std::size_t index = 0; index < image.pixels.size(); index += bytesPerPixel) {
        const std::uint8_t* pixel = image.pixels.data() + index;
        packed.insert(packed.end(), pixel, pixel + samples);
    }
    png_image description{};
    description.version = PNG_IMAGE_VERSION;
    description.width = static_cast<png_uint_32>(image.width);
    description.height = static_cast<png_uint_32>(image.height);
    description.format = samples == 1 ? PNG_FORMAT_GRAY : samples == 3 ? PNG_FORMAT_RGB : PNG_FORMAT_RGBA;
    QByteArray file(static_cast<qsizetype>(PNG_IMAGE_PNG_SIZE_MAX(description)), Qt::Uninitialized);
    png_alloc_size_t size = static_cast<png_alloc_size_t>(file.size());
    if (png_image_write_to_memory(&description, file.data(), &size, 0, packed.data(), 0, nullptr) == 0) {
        throw std::runtime_error(description.message);
    }
    file.resize(static_cast<qsizetype>(size));
    return file;
}

}  // namespace quarlin::bench

// Decodes the bytes of a file to pixels. The corpus decides which format is tested.

#include "expectation.h"
#include "imaging/decode/image_decoder.h"
#include "imaging/decode/plain_png_decoder.h"
#include "imaging/decode/vips_decoder.h"
#include "imaging/pixels/image_view.h"
#include "imaging/pixels/pixel_image.h"
#include "memory_fill.h"

#include <QByteArray>
#include <QImage>

#include <algorithm>

using namespace quarlin;
using namespace quarlin::fuzz;

namespace {

bool isPremultiplied(const QImage& image) {
    const ImageView view(image);
    const std::size_t size = pixelCount(view.width, view.height) * bytesPerPixel;
    for (std::size_t index = 0; index < size; index += bytesPerPixel) {
        const std::uint8_t* pixel = view.pixels + index;
        if (std::max({pixel[0], pixel[1], pixel[2]}) > pixel[3]) {
            return false;
        }
    }
    return true;
}

void expectDecodersAgree(const QByteArray& bytes) {
    const QImage plain = decodePlainPng(bytes);
    const QImage general = plain.isNull() ? QImage() : decodeWithVips(bytes);
    expect(general.isNull() || plain == general, "both decoders of a plain PNG give the same pixels");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    fillNewMemoryWith(0);
    const QImage image = decodeImage(bytes);
    if (!image.isNull()) {
        expect(image.format() == pixelFormat, "an image has the engine's pixel format");
        expect(isUsableSize(image.width(), image.height()), "an image is of a usable size");
        expect(isPremultiplied(image), "no color is above its alpha");
    }
    // A large picture from a small file takes as long as thousands of others.
    if (image.sizeInBytes() > qsizetype{1} << 20U) {
        return 0;
    }
    expectDecodersAgree(bytes);
    // Where a damaged HEVC stream leaves a gap, libde265 returns uninitialized pixels without an error.
    if (!bytes.contains("hvc1")) {
        fillNewMemoryWith(255);
        expect(decodeImage(bytes) == image,
               "a file decodes to the same pixels whatever the memory held before");
    }
    return 0;
}

// Decodes the bytes of a file to pixels. The corpus decides which format is tested.

#include "expectation.h"
#include "imaging/decode/decode_error.h"
#include "imaging/decode/formats/plain_png_reader.h"
#include "imaging/decode/formats/png_reader.h"
#include "imaging/decode/image_decoder.h"
#include "imaging/pixels/image_view.h"
#include "imaging/pixels/pixel_image.h"
#include "memory_fill.h"

#include <QByteArray>
#include <QImage>

#include <algorithm>
#include <memory>
#include <new>

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

/// The image that `open` gives; a null image if the bytes can't be decoded.
template <typename Open>
QImage imageFrom(const Open& open) {
    try {
        const std::unique_ptr<RowReader> reader = open();
        return reader ? readImage(*reader) : QImage();
    } catch (const DecodeError&) {
        return {};
    } catch (const std::bad_alloc&) {
        return {};
    }
}

/// Whether reading a few rows at a time gives `image`.
void expectSameRows(const QByteArray& bytes, const QImage& image) {
    const std::unique_ptr<RowReader> reader = openImage(bytes);
    PixelBuffer rows(static_cast<std::size_t>(3 * reader->bytesPerRow()));
    while (reader->position() < reader->height()) {
        const std::int64_t first = reader->position();
        const std::int64_t count = std::min<std::int64_t>(1 + first % 3, reader->height() - first);
        reader->read(count, rows.data());
        expect(std::equal(rows.begin(), rows.begin() + count * reader->bytesPerRow(),
                          ImageView(image).row(first)),
               "rows are the same however many are read at once");
    }
}

void expectDecodersAgree(const QByteArray& bytes) {
    const QImage plain = imageFrom([&] { return openPlainPng(bytesInMemory(bytes)); });
    const QImage general = plain.isNull() ? QImage() : imageFrom([&] { return openAnyPng(bytes).rows; });
    expect(general.isNull() || plain == general, "both decoders of a plain PNG give the same pixels");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    fillNewMemoryWith(0);
    const QImage image = imageFrom([&] { return openImage(bytes); });
    if (!image.isNull()) {
        expect(image.format() == pixelFormat, "an image has the engine's pixel format");
        expect(isUsableSize(image.width(), image.height()), "an image is of a usable size");
        expect(isPremultiplied(image), "no color is above its alpha");
    }
    // A large picture from a small file takes as long as thousands of others.
    if (image.sizeInBytes() > qsizetype{1} << 20U) {
        return 0;
    }
    if (!image.isNull()) {
        expectSameRows(bytes, image);
    }
    expectDecodersAgree(bytes);
    // Where a damaged HEVC stream leaves a gap, libde265 returns uninitialized pixels without an error.
    if (!bytes.contains("hvc1")) {
        fillNewMemoryWith(255);
        expect(imageFrom([&] { return openImage(bytes); }) == image,
               "a file decodes to the same pixels whatever the memory held before");
    }
    return 0;
}

// Writes PNG files and reads them with the reference library of the format.

#include "drawn_pixels.h"
#include "expectation.h"
#include "imaging/pixels/pixel_image.h"
#include "imaging/png/png_encoder.h"

#include <fuzzer/FuzzedDataProvider.h>
#include <png.h>

#include <cmath>
#include <vector>

using namespace quarlin;
using namespace quarlin::fuzz;

namespace {

using Bytes = std::vector<std::uint8_t>;

QByteArray written(const PngEncoder& png, const std::vector<PngStrip>& strips) {
    QByteArray file = png.beginning();
    std::uint32_t adler = 1;
    for (const PngStrip& strip : strips) {
        file += strip.chunk;
        adler = extendedAdler(adler, strip);
    }
    return file + PngEncoder::ending(adler);
}

QByteArray encoded(const Drawing& drawing) {
    const PngEncoder png(drawing.width, drawing.height);
    std::vector<PngStrip> strips;
    for (std::int64_t strip = 0; strip < png.strips().count(); ++strip) {
        const std::int64_t first = png.strips()[strip].first;
        strips.push_back(
            png.encodeStrip(strip, drawing.pixels.data() + first * drawing.width * bytesPerPixel));
    }
    return written(png, strips);
}

QByteArray encodedAsGray(const Drawing& drawing) {
    Bytes gray(drawing.pixels.size() / 4);
    for (std::size_t index = 0; index < gray.size(); ++index) {
        gray[index] = drawing.pixels[index * 4];
    }
    const PngEncoder png(drawing.width, drawing.height);
    std::vector<PngStrip> strips(static_cast<std::size_t>(png.strips().count()));
    // From the last to the first: the order must not matter.
    for (std::int64_t strip = png.strips().count() - 1; strip >= 0; --strip) {
        const std::int64_t first = png.strips()[strip].first;
        strips[static_cast<std::size_t>(strip)] =
            png.encodeGrayStrip(strip, gray.data() + first * drawing.width);
    }
    return written(png, strips);
}

Bytes straight(const Bytes& premultiplied) {
    Bytes result = premultiplied;
    for (std::size_t index = 0; index < result.size(); index += 4) {
        const int alpha = result[index + 3];
        for (std::size_t channel = index; channel < index + 3; ++channel) {
            const int color = std::min<int>(result[channel], alpha);
            result[channel] =
                alpha == 0 ? std::uint8_t{0} : static_cast<std::uint8_t>(std::lround(color * 255.0 / alpha));
        }
    }
    return result;
}

Bytes decoded(const QByteArray& file, const Drawing& drawing) {
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    expect(png_image_begin_read_from_memory(&image, file.constData(),
                                            static_cast<std::size_t>(file.size())) != 0,
           "a file can be opened");
    expect(image.width == drawing.width && image.height == drawing.height, "a file has the drawing's size");
    expect(image.format == PNG_FORMAT_RGBA, "a file is 8-bit RGBA");
    Bytes pixels(PNG_IMAGE_SIZE(image));
    expect(png_image_finish_read(&image, nullptr, pixels.data(), 0, nullptr) != 0, "a file can be decoded");
    expect(image.warning_or_error == 0, "a file decodes without a warning");
    return pixels;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    FuzzedDataProvider input(data, size);
    const Drawing drawing = draw(input);
    const QByteArray file = encoded(drawing);
    expect(decoded(file, drawing) == straight(drawing.pixels),
           "a file holds the drawing with straight alpha");
    if (drawing.kind == PixelKind::gray) {
        expect(encodedAsGray(drawing) == file, "gray rows give the file that their pixels give");
    }
    return 0;
}

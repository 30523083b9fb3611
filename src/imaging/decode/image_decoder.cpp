#include "imaging/decode/image_decoder.h"

#include "imaging/decode/decode_error.h"
#include "imaging/decode/formats/bmp/bmp_reader.h"
#include "imaging/decode/formats/gif/gif_reader.h"
#include "imaging/decode/formats/heif/heif_reader.h"
#include "imaging/decode/formats/jpeg_reader.h"
#include "imaging/decode/formats/png_reader.h"
#include "imaging/decode/formats/tga_reader.h"
#include "imaging/decode/formats/tiff/tiff_reader.h"
#include "imaging/decode/formats/webp_reader.h"
#include "imaging/pixels/image_view.h"

#include <algorithm>
#include <array>
#include <new>

namespace quarlin {

namespace {

/// Formats that one reader serves.
struct FormatFamily {
    /// Whether a file of the family begins with these bytes.
    bool (*matches)(const QByteArray& beginning);
    OpenedImage (*open)(const std::shared_ptr<ByteSource>& source, ColorHandling handling);
};

/// Opens a file by a reader that needs all of its bytes.
template <OpenedImage (*open)(const QByteArray& bytes, ColorHandling handling)>
OpenedImage openWhole(const std::shared_ptr<ByteSource>& source, ColorHandling handling) {
    return open(source->all(), handling);
}

/// The same for formats whose samples always count as sRGB.
template <std::unique_ptr<RowReader> (*open)(const QByteArray& bytes)>
OpenedImage openWholeSRGB(const std::shared_ptr<ByteSource>& source, ColorHandling) {
    return {open(source->all())};
}

constexpr std::array families{FormatFamily{isPng, openPng},
                              FormatFamily{isJpeg, openJpeg},
                              FormatFamily{isBmp, openWholeSRGB<openBmp>},
                              FormatFamily{isHeif, openWhole<openHeif>},
                              FormatFamily{isTiff, openWhole<openTiff>},
                              FormatFamily{isGif, openWholeSRGB<openGif>},
                              FormatFamily{isWebp, openWhole<openWebp>},
                              // Without a signature, so it comes last.
                              FormatFamily{isTga, openWholeSRGB<openTga>}};

}  // namespace

OpenedImage openImage(const std::shared_ptr<ByteSource>& source, ColorHandling handling) {
    constexpr std::int64_t beginningSize = 4096;
    const QByteArray beginning = source->part(0, beginningSize);
    const auto* const family = std::find_if(
        families.begin(), families.end(), [&](const FormatFamily& each) { return each.matches(beginning); });
    if (family == families.end()) {
        throw DecodeError(DecodeProblem::notAnImage);
    }
    return family->open(source, handling);
}

std::unique_ptr<RowReader> openImage(const QByteArray& bytes) {
    return openImage(bytesInMemory(bytes), ColorHandling::convert).rows;
}

QImage decodeImage(const QByteArray& bytes) { return readImage(*openImage(bytes)); }

QImage readImage(RowReader& reader) {
    // The first rows prove that there is something to decode: a header alone may claim any size, and memory
    // for it should not be taken before that.
    constexpr std::int64_t rowsBelieved = 16;
    const std::int64_t left = reader.height() - reader.position();
    const std::int64_t firstCount = std::min(left, rowsBelieved);
    PixelBuffer first(static_cast<std::size_t>(firstCount * reader.bytesPerRow()));
    reader.read(firstCount, first.data());
    QImage image(static_cast<int>(reader.width()), static_cast<int>(left), pixelFormat);
    if (image.isNull()) {
        throw std::bad_alloc();
    }
    std::copy(first.begin(), first.end(), image.bits());
    reader.read(left - firstCount, image.bits() + first.size());
    return image;
}

}  // namespace quarlin

#include "imaging/decode/vips_decoder.h"

#include "imaging/base/parallel.h"
#include "imaging/base/row_strips.h"
#include "imaging/color/color_conversion.h"
#include "imaging/color/color_profile.h"
#include "imaging/decode/row_conversion.h"
#include "imaging/decode/tiff_alpha.h"
#include "imaging/pixels/image_view.h"

#include <vips/vips.h>

#include <algorithm>
#include <array>
#include <exception>
#include <functional>
#include <memory>
#include <mutex>
#include <string_view>

namespace quarlin {

namespace {

struct Unreferencer {
    void operator()(VipsImage* image) const { g_object_unref(image); }
};
using Image = std::unique_ptr<VipsImage, Unreferencer>;

/// Calls a libvips operation whose last fixed argument is the output image; a null image when it fails.
template <typename Operation>
Image result(Operation operation) {
    VipsImage* output = nullptr;
    if (operation(&output) != 0) {
        vips_error_clear();
        return nullptr;
    }
    return Image(output);
}

bool startLibrary() {
    static std::once_flag once;
    static bool started = false;
    std::call_once(once, [] {
        started = vips_init("quarlin") == 0;
        if (!started) {
            return;
        }
        // Files come from anywhere: the loaders that were never fuzzed stay closed.
        vips_block_untrusted_set(TRUE);
        // The same file name or buffer may hold another image next time: nothing is remembered.
        vips_cache_set_max(0);
        // Of several threads of one decoding, version 8.14 does not wait for the last before it looks whether
        // any failed: now and then the error of a damaged row is lost, and the row is taken as blank.
        vips_concurrency_set(1);
        // What a decoder has to say goes into the result, not to the terminal.
        g_log_set_handler(
            "VIPS", static_cast<GLogLevelFlags>(G_LOG_LEVEL_MASK | G_LOG_FLAG_FATAL),
            [](const gchar*, GLogLevelFlags, const gchar*, gpointer) {}, nullptr);
    });
    return started;
}

/// Whether the bytes are of a format that Quarlin promises to read. libvips knows more, not all of them meant
/// for files from strangers.
bool isSupportedLoader(const char* loader) {
    constexpr std::array<std::string_view, 6> supported{
        "VipsForeignLoadPngBuffer",   "VipsForeignLoadJpegBuffer", "VipsForeignLoadTiffBuffer",
        "VipsForeignLoadNsgifBuffer", "VipsForeignLoadWebpBuffer", "VipsForeignLoadHeifBuffer"};
    return loader != nullptr && std::find(supported.begin(), supported.end(), loader) != supported.end();
}

/// The number of bands that carry color, without alpha.
int colorBands(VipsImage* image) {
    return vips_image_hasalpha(image) != 0 ? vips_image_get_bands(image) - 1 : vips_image_get_bands(image);
}

QByteArray embeddedProfile(VipsImage* image) {
    const void* data = nullptr;
    std::size_t size = 0;
    if (vips_image_get_typeof(image, VIPS_META_ICC_NAME) == 0 ||
        vips_image_get_blob(image, VIPS_META_ICC_NAME, &data, &size) != 0) {
        vips_error_clear();
        return {};
    }
    return {static_cast<const char*>(data), static_cast<qsizetype>(size)};
}

/// A profile that libvips brings along.
QByteArray builtInProfile(const char* name) {
    VipsBlob* blob = nullptr;
    if (vips_profile_load(name, &blob, nullptr) != 0) {
        vips_error_clear();
        return {};
    }
    std::size_t size = 0;
    const void* data = vips_blob_get(blob, &size);
    QByteArray bytes(static_cast<const char*>(data), static_cast<qsizetype>(size));
    vips_area_unref(VIPS_AREA(blob));
    return bytes;
}

/// How the pixels of an image become those of a texture.
using StoreRow = std::function<void(const void* input, std::int64_t count, std::uint8_t* output)>;

template <typename Sample>
StoreRow storeRowOf(RowStore<Sample> store) {
    if (!store) {
        return {};
    }
    return [store = std::move(store)](const void* input, std::int64_t count, std::uint8_t* output) {
        store(static_cast<const Sample*>(input), count, output);
    };
}

/// The conversion to sRGB that the image or its file asks for; empty when its samples are sRGB as they stand,
/// or nothing usable is said of them.
template <typename Sample>
ColorConversion<Sample> conversionOf(VipsImage* image, const QByteArray& bytes) {
    const int channels = colorBands(image);
    const int bands = vips_image_get_bands(image);
    const QByteArray embedded = embeddedProfile(image);
    const ProfileUse use = embedded.isEmpty() ? ProfileUse::unusable : judgeProfile(embedded, channels);
    if (use == ProfileUse::samplesAreSRGB) {
        return {};
    }
    ColorConversion<Sample> conversion;
    if (use == ProfileUse::convert) {
        conversion = conversionToSRGB<Sample>(embedded, channels, bands);
    }
    if (!conversion) {
        if (const auto gamma = profileOfPngGamma(bytes, channels)) {
            conversion = conversionToSRGB<Sample>(*gamma, channels, bands);
        }
    }
    if (!conversion && vips_image_guess_interpretation(image) == VIPS_INTERPRETATION_CMYK) {
        conversion = conversionToSRGB<Sample>(builtInProfile("cmyk"), channels, bands);
    }
    return conversion;
}

template <typename Sample>
StoreRow storeRowFor(VipsImage* image, const QByteArray& bytes, StoredAlpha alpha) {
    const int bands = vips_image_get_bands(image);
    if (ColorConversion<Sample> conversion = conversionOf<Sample>(image, bytes)) {
        const bool hasAlpha = bands > colorBands(image);
        return storeRowOf(storeConverted(std::move(conversion), bands, hasAlpha, alpha));
    }
    return storeRowOf(storeAsTheyAre<Sample>(bands, alpha));
}

/// The image with 8-bit sRGB samples, whatever it holds.
Image plainSRGB(const Image& image) {
    const Image converted = result([&](VipsImage** out) {
        return vips_colourspace(image.get(), out, VIPS_INTERPRETATION_sRGB, nullptr);
    });
    return converted ? result([&](VipsImage** out) { return vips_cast_uchar(converted.get(), out, nullptr); })
                     : nullptr;
}

/// Whether samples can be stored by a `RowStore`: 8 or 16 bits of gray, RGB or inks.
bool hasOrdinarySamples(VipsImage* image) {
    const VipsBandFormat format = vips_image_get_format(image);
    const int channels = colorBands(image);
    return (format == VIPS_FORMAT_UCHAR || format == VIPS_FORMAT_USHORT) &&
           (channels == 1 || channels == 3 ||
            vips_image_guess_interpretation(image) == VIPS_INTERPRETATION_CMYK);
}

struct Sink {
    const StoreRow& store;
    QSize size;
    QImage image;
};

/// Called by libvips for every run of decoded rows, in order, while it decodes the next.
int storeRows(VipsRegion* region, VipsRect* area, void* context) {
    Sink& sink = *static_cast<Sink*>(context);
    if (sink.image.isNull()) {
        // Not before there are rows: a header alone may claim any size.
        sink.image = QImage(sink.size, pixelFormat);
        if (sink.image.isNull()) {
            return -1;
        }
    }
    std::uint8_t* pixels = sink.image.bits();
    const std::int64_t bytesPerRow = sink.image.bytesPerLine();
    // Decoding has one thread only; what is done to the colors need not wait for it.
    constexpr std::int64_t rowsPerStrip = 16;
    const RowStrips bands(area->height, rowsPerStrip);
    try {
        forEachInParallel(bands.count(), [&](std::int64_t band) {
            const int end = area->top + static_cast<int>(bands[band].end());
            for (int y = area->top + static_cast<int>(bands[band].first); y < end; ++y) {
                sink.store(VIPS_REGION_ADDR(region, area->left, y), area->width, pixels + y * bytesPerRow);
            }
        });
    } catch (const std::exception&) {
        // Nothing may be thrown through the library's own functions.
        return -1;
    }
    return 0;
}

}  // namespace

QImage decodeWithVips(QByteArray bytes) {
    if (!startLibrary() || bytes.isEmpty()) {
        return {};
    }
    const StoredAlpha alpha =
        markPremultipliedTiffAsStraight(bytes) ? StoredAlpha::premultiplied : StoredAlpha::straight;
    const auto size = static_cast<std::size_t>(bytes.size());
    const char* loader = vips_foreign_find_load_buffer(bytes.constData(), size);
    vips_error_clear();
    if (!isSupportedLoader(loader)) {
        return {};
    }
    // The JPEG decoder calls a scan that is damaged or ends too soon a warning and fills the rest with gray.
    const bool isJpeg = std::string_view(loader) == "VipsForeignLoadJpegBuffer";
    const VipsFailOn failOn = isJpeg ? VIPS_FAIL_ON_WARNING : VIPS_FAIL_ON_ERROR;
    Image image(vips_image_new_from_buffer(bytes.constData(), size, "", "access", VIPS_ACCESS_SEQUENTIAL,
                                           "fail_on", failOn, nullptr));
    if (!image || !isPlausibleSize(vips_image_get_width(image.get()), vips_image_get_height(image.get()),
                                   bytes.size())) {
        vips_error_clear();
        return {};
    }
    if (!hasOrdinarySamples(image.get())) {
        image = plainSRGB(image);
    }
    const StoreRow store = !image ? StoreRow()
                           : vips_image_get_format(image.get()) == VIPS_FORMAT_USHORT
                               ? storeRowFor<std::uint16_t>(image.get(), bytes, alpha)
                               : storeRowFor<std::uint8_t>(image.get(), bytes, alpha);
    if (!store) {
        return {};
    }
    Sink sink{store, QSize(vips_image_get_width(image.get()), vips_image_get_height(image.get())), QImage()};
    if (vips_sink_disc(image.get(), storeRows, &sink) != 0) {
        vips_error_clear();
        return {};
    }
    return sink.image;
}

}  // namespace quarlin

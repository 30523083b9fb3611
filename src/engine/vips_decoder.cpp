#include "vips_decoder.h"

#include "colour_profile.h"
#include "image_view.h"
#include "store_pixels.h"

#include <vips/vips.h>

#include <algorithm>
#include <array>
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

/// The number of bands that carry colour, without alpha.
int colourBands(VipsImage* image) {
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

/// Converts the colour bands of `image` to 8-bit sRGB by a profile; alpha goes along as it is.
Image convertedByProfile(Image image, const QByteArray& profile) {
    const int bands = colourBands(image.get());
    const Image colour =
        result([&](VipsImage** out) { return vips_extract_band(image.get(), out, 0, "n", bands, nullptr); });
    // An image of its own, so that the profile is not set on one that is shared.
    const Image tagged =
        colour ? result([&](VipsImage** out) { return vips_copy(colour.get(), out, nullptr); }) : nullptr;
    if (!tagged) {
        return nullptr;
    }
    vips_image_set_blob_copy(tagged.get(), VIPS_META_ICC_NAME, profile.constData(),
                             static_cast<std::size_t>(profile.size()));
    Image converted = result([&](VipsImage** out) {
        return vips_icc_transform(tagged.get(), out, "srgb", "embedded", TRUE, "intent", VIPS_INTENT_RELATIVE,
                                  "black_point_compensation", TRUE, "depth", 8, nullptr);
    });
    if (!converted || bands == vips_image_get_bands(image.get())) {
        return converted;
    }
    Image alpha =
        result([&](VipsImage** out) { return vips_extract_band(image.get(), out, bands, "n", 1, nullptr); });
    if (alpha && vips_image_get_format(alpha.get()) == VIPS_FORMAT_USHORT) {
        // 65535 is 257 times 255; the half makes the cast, which truncates, round.
        const Image scaled = result(
            [&](VipsImage** out) { return vips_linear1(alpha.get(), out, 1.0 / 257.0, 0.5, nullptr); });
        alpha = scaled ? result([&](VipsImage** out) { return vips_cast_uchar(scaled.get(), out, nullptr); })
                       : nullptr;
    }
    return alpha ? result([&](VipsImage** out) {
        return vips_bandjoin2(converted.get(), alpha.get(), out, nullptr);
    })
                 : nullptr;
}

/// Brings `image` to sRGB samples of 8 or 16 bits: grey or RGB, with or without alpha.
Image toSRGB(Image image, const QByteArray& bytes) {
    const int bands = colourBands(image.get());
    const VipsInterpretation interpretation = vips_image_guess_interpretation(image.get());
    QByteArray profile = embeddedProfile(image.get());
    ProfileUse use = profile.isEmpty() ? ProfileUse::unusable : judgeProfile(profile, bands);
    if (use == ProfileUse::unusable) {
        if (const auto gamma = profileOfPngGamma(bytes, bands)) {
            profile = *gamma;
            use = ProfileUse::convert;
        }
    }
    if (use == ProfileUse::convert) {
        return convertedByProfile(std::move(image), profile);
    }
    if (interpretation == VIPS_INTERPRETATION_CMYK) {
        return convertedByProfile(std::move(image), builtInProfile("cmyk"));
    }
    const VipsBandFormat format = vips_image_get_format(image.get());
    if ((format == VIPS_FORMAT_UCHAR || format == VIPS_FORMAT_USHORT) && (bands == 1 || bands == 3)) {
        return image;
    }
    const Image converted = result([&](VipsImage** out) {
        return vips_colourspace(image.get(), out, VIPS_INTERPRETATION_sRGB, nullptr);
    });
    return converted ? result([&](VipsImage** out) { return vips_cast_uchar(converted.get(), out, nullptr); })
                     : nullptr;
}

using StorePixels = void (*)(const void*, std::int64_t, std::uint8_t*);

template <typename Sample, int bands>
void storeAny(const void* input, std::int64_t count, std::uint8_t* output) {
    storePixels<Sample, bands>(static_cast<const Sample*>(input), count, output);
}

StorePixels storeFunction(VipsImage* image) {
    const int bands = vips_image_get_bands(image);
    if (bands < 1 || bands > 4) {
        return nullptr;
    }
    const auto index = static_cast<std::size_t>(bands - 1);
    switch (vips_image_get_format(image)) {
        case VIPS_FORMAT_UCHAR:
            return std::array<StorePixels, 4>{storeAny<std::uint8_t, 1>, storeAny<std::uint8_t, 2>,
                                              storeAny<std::uint8_t, 3>, storeAny<std::uint8_t, 4>}[index];
        case VIPS_FORMAT_USHORT:
            return std::array<StorePixels, 4>{storeAny<std::uint16_t, 1>, storeAny<std::uint16_t, 2>,
                                              storeAny<std::uint16_t, 3>, storeAny<std::uint16_t, 4>}[index];
        default:
            return nullptr;
    }
}

struct Sink {
    StorePixels store;
    std::uint8_t* pixels;
    std::int64_t bytesPerRow;
};

/// Called by libvips for every run of decoded rows, in order, while it decodes the next.
int storeRows(VipsRegion* region, VipsRect* area, void* context) {
    const Sink& sink = *static_cast<const Sink*>(context);
    for (int y = area->top; y < area->top + area->height; ++y) {
        sink.store(VIPS_REGION_ADDR(region, area->left, y), area->width, sink.pixels + y * sink.bytesPerRow);
    }
    return 0;
}

}  // namespace

QImage decodeWithVips(const QByteArray& bytes) {
    if (!startLibrary() || bytes.isEmpty()) {
        return {};
    }
    const auto size = static_cast<std::size_t>(bytes.size());
    const char* loader = vips_foreign_find_load_buffer(bytes.constData(), size);
    vips_error_clear();
    if (!isSupportedLoader(loader)) {
        return {};
    }
    // The JPEG decoder calls a scan that is damaged or ends too soon a warning and fills the rest with grey.
    const bool isJpeg = std::string_view(loader) == "VipsForeignLoadJpegBuffer";
    const VipsFailOn failOn = isJpeg ? VIPS_FAIL_ON_WARNING : VIPS_FAIL_ON_ERROR;
    Image image(vips_image_new_from_buffer(bytes.constData(), size, "", "access", VIPS_ACCESS_SEQUENTIAL,
                                           "fail_on", failOn, nullptr));
    if (!image || !isUsableSize(vips_image_get_width(image.get()), vips_image_get_height(image.get()))) {
        vips_error_clear();
        return {};
    }
    image = toSRGB(std::move(image), bytes);
    const StorePixels store = image ? storeFunction(image.get()) : nullptr;
    if (store == nullptr) {
        return {};
    }
    QImage decoded(vips_image_get_width(image.get()), vips_image_get_height(image.get()), pixelFormat);
    if (decoded.isNull()) {
        return {};
    }
    // With several threads that read ahead, libvips 8.14 now and then loses the error of a damaged row and
    // takes the row as blank.
    vips_image_set_int(image.get(), VIPS_META_CONCURRENCY, 1);
    Sink sink{store, decoded.bits(), decoded.bytesPerLine()};
    if (vips_sink_disc(image.get(), storeRows, &sink) != 0) {
        vips_error_clear();
        return {};
    }
    return decoded;
}

}  // namespace quarlin

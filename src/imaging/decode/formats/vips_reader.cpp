#include "imaging/decode/formats/vips_reader.h"

#include "imaging/base/pixel_size.h"
#include "imaging/decode/decode_error.h"
#include "imaging/decode/default_cmyk_profile.h"
#include "imaging/decode/row_conversion.h"
#include "imaging/decode/two_step_reader.h"
#include "imaging/decode/vips_library.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

namespace quarlin {

namespace {

const VipsFunctions& library() { return vipsLibrary(); }

struct Unreferencer {
    void operator()(void* object) const { library().g_object_unref(object); }
};
using Image = std::unique_ptr<VipsImage, Unreferencer>;
using Region = std::unique_ptr<VipsRegion, Unreferencer>;

[[noreturn]] void refuse() {
    const bool lacksMemory =
        std::string_view(library().vips_error_buffer()).find("out of memory") != std::string_view::npos;
    library().vips_error_clear();
    throw DecodeError(lacksMemory ? DecodeProblem::tooLarge : DecodeProblem::damaged);
}

/// The result of a libvips operation whose last fixed argument is the output image.
template <typename Operation>
Image result(Operation operation) {
    VipsImage* output = nullptr;
    if (operation(&output) != 0) {
        refuse();
    }
    return Image(output);
}

/// Whether the loader is one of those that are used. libvips has more, not all of them safe for files from
/// strangers.
bool isSupportedLoader(const char* loader) {
    constexpr std::array<std::string_view, 2> supported{"VipsForeignLoadPngBuffer",
                                                        "VipsForeignLoadWebpBuffer"};
    return loader != nullptr && std::find(supported.begin(), supported.end(), loader) != supported.end();
}

bool isCmyk(VipsImage* image) {
    return library().vips_image_guess_interpretation(image) == VIPS_INTERPRETATION_CMYK;
}

SampleForm formOf(VipsImage* image) {
    return {.channels = library().vips_image_get_bands(image),
            .hasAlpha = library().vips_image_hasalpha(image) != 0,
            .bits = library().vips_image_get_format(image) == VIPS_FORMAT_USHORT ? 16 : 8};
}

QByteArray embeddedProfile(VipsImage* image) {
    const void* data = nullptr;
    std::size_t size = 0;
    if (library().vips_image_get_typeof(image, VIPS_META_ICC_NAME) == 0 ||
        library().vips_image_get_blob(image, VIPS_META_ICC_NAME, &data, &size) != 0) {
        library().vips_error_clear();
        return {};
    }
    return {static_cast<const char*>(data), static_cast<qsizetype>(size)};
}

/// The image with 8-bit sRGB samples, whatever it holds.
Image plainSRGB(const Image& image) {
    const Image converted = result([&](VipsImage** out) {
        return library().vips_colourspace(image.get(), out, VIPS_INTERPRETATION_sRGB, nullptr);
    });
    return result([&](VipsImage** out) { return library().vips_cast_uchar(converted.get(), out, nullptr); });
}

/// Whether a `RowConversion` can convert the samples: 8 or 16 bits of gray, RGB or inks.
bool hasOrdinarySamples(VipsImage* image) {
    const VipsBandFormat format = library().vips_image_get_format(image);
    const int channels = formOf(image).colorChannels();
    return (format == VIPS_FORMAT_UCHAR || format == VIPS_FORMAT_USHORT) &&
           (channels == 1 || channels == 3 || isCmyk(image));
}

class VipsReader final : public TwoStepReader {
public:
    /// `image` reads from `bytes`.
    VipsReader(QByteArray bytes, Image image, const SampleForm& form, RowConversion conversion)
        : TwoStepReader(library().vips_image_get_width(image.get()),
                        library().vips_image_get_height(image.get()),
                        library().vips_image_get_width(image.get()) * form.bytesPerPixel()),
          m_bytes(std::move(bytes)),
          m_image(std::move(image)),
          m_conversion(std::move(conversion)) {}

private:
    void decodeRows(std::int64_t count, std::uint8_t* samples) override {
        // A region belongs to the thread that made it, and the next rows may be decoded by another one.
        const Region region(library().vips_region_new(m_image.get()));
        const VipsRect area{0, static_cast<int>(m_decodedRows), static_cast<int>(width()),
                            static_cast<int>(count)};
        if (!region || library().vips_region_prepare(region.get(), &area) != 0) {
            refuse();
        }
        // The region holds whole rows, at least those of the area.
        const auto rowSkip = static_cast<std::int64_t>(VIPS_REGION_LSKIP(region.get()));
        const std::uint8_t* row =
            VIPS_REGION_ADDR_TOPLEFT(region.get()) + (m_decodedRows - region->valid.top) * rowSkip;
        for (std::int64_t index = 0; index < count; ++index) {
            samples = std::copy_n(row, samplesPerRow(), samples);
            row += rowSkip;
        }
        m_decodedRows += count;
    }

    void convertRows(std::int64_t count, std::uint8_t* samples, std::uint8_t* pixels) override {
        m_conversion(samples, count * width(), pixels);
    }

    QByteArray m_bytes;
    Image m_image;
    std::int64_t m_decodedRows = 0;
    RowConversion m_conversion;
};

}  // namespace

OpenedImage openWithVips(QByteArray bytes, const ProfileOfChannels& otherProfile, ColorHandling handling) {
    const auto size = static_cast<std::size_t>(bytes.size());
    const char* loader = library().vips_foreign_find_load_buffer(bytes.constData(), size);
    if (!isSupportedLoader(loader)) {
        refuse();
    }
    Image image(library().vips_image_new_from_buffer(bytes.constData(), size, "", "access",
                                                     VIPS_ACCESS_SEQUENTIAL, "fail_on", VIPS_FAIL_ON_ERROR,
                                                     nullptr));
    if (!image || !isPlausibleSize(library().vips_image_get_width(image.get()),
                                   library().vips_image_get_height(image.get()), bytes.size())) {
        refuse();
    }
    if (!hasOrdinarySamples(image.get())) {
        image = plainSRGB(image);
    }
    const SampleForm form = formOf(image.get());
    const FileColors colors{embeddedProfile(image.get()),
                            [&]() -> std::optional<NamedProfile> {
                                if (isCmyk(image.get())) {
                                    return defaultCmykProfile();
                                }
                                return otherProfile ? otherProfile(form.colorChannels()) : std::nullopt;
                            },
                            handling};
    FileConversion conversion = rowConversion(form, colors);
    if (!conversion.convert) {
        refuse();
    }
    return {
        std::make_unique<VipsReader>(std::move(bytes), std::move(image), form, std::move(conversion.convert)),
        conversion.convertedFrom};
}

}  // namespace quarlin

#include "imaging/decode/formats/heif/heif_reader.h"

#include "imaging/base/pixel_size.h"
#include "imaging/color/coded_colors.h"
#include "imaging/decode/decode_error.h"
#include "imaging/decode/formats/heif/coded_images.h"
#include "imaging/decode/formats/heif/heif_library.h"
#include "imaging/decode/formats/heif/orientation.h"
#include "imaging/decode/row_conversion.h"
#include "imaging/decode/two_step_reader.h"

#include <QSysInfo>

#include <algorithm>
#include <array>
#include <optional>
#include <string_view>
#include <utility>

namespace quarlin {

using namespace Qt::StringLiterals;

namespace {

const HeifFunctions& library() { return heifLibrary(); }

/// Deletes what the library has made by one of its own functions.
template <auto release>
struct Releaser {
    template <typename Object>
    void operator()(Object* object) const {
        (library().*release)(object);
    }
};
using Context = std::unique_ptr<heif_context, Releaser<&HeifFunctions::heif_context_free>>;
using ImageHandle = std::unique_ptr<heif_image_handle, Releaser<&HeifFunctions::heif_image_handle_release>>;
using DecodedImage = std::unique_ptr<heif_image, Releaser<&HeifFunctions::heif_image_release>>;
using CodedProfile =
    std::unique_ptr<heif_color_profile_nclx, Releaser<&HeifFunctions::heif_nclx_color_profile_free>>;

void expectOk(const heif_error& error) {
    if (error.code == heif_error_Memory_allocation_error) {
        throw DecodeError(DecodeProblem::tooLarge);
    }
    if (error.code != heif_error_Ok) {
        throw DecodeError(DecodeProblem::damaged);
    }
}

QByteArray embeddedProfile(const heif_image_handle* handle) {
    const std::size_t size = library().heif_image_handle_get_raw_color_profile_size(handle);
    QByteArray profile(static_cast<qsizetype>(size), '\0');
    if (size == 0 ||
        library().heif_image_handle_get_raw_color_profile(handle, profile.data()).code != heif_error_Ok) {
        return {};
    }
    return profile;
}

std::optional<NamedProfile> profileOfCode(const heif_image_handle* handle) {
    heif_color_profile_nclx* found = nullptr;
    const heif_error error = library().heif_image_handle_get_nclx_color_profile(handle, &found);
    const CodedProfile code(found);
    if (error.code != heif_error_Ok || !code) {
        return std::nullopt;
    }
    const std::optional<QByteArray> profile =
        profileOfCodedColors(code->color_primaries, code->transfer_characteristics);
    return profile
               ? std::optional(NamedProfile{
                     *profile,
                     u"coded colors %1/%2"_s.arg(code->color_primaries).arg(code->transfer_characteristics)})
               : std::nullopt;
}

SampleForm formOf(const heif_image_handle* handle) {
    constexpr int usualDepth = 8;
    SampleForm form;
    form.hasAlpha = library().heif_image_handle_has_alpha_channel(handle) != 0;
    form.channels = form.hasAlpha ? 4 : 3;
    form.bits = library().heif_image_handle_get_luma_bits_per_pixel(handle) > usualDepth ? 16 : 8;
    form.alpha = library().heif_image_handle_is_premultiplied_alpha(handle) != 0 ? FileAlpha::premultiplied
                                                                                 : FileAlpha::straight;
    return form;
}

/// The library's name for the samples of `form`, side by side.
heif_chroma chromaOf(const SampleForm& form) {
    if (form.bits == 8) {
        return form.hasAlpha ? heif_chroma_interleaved_RGBA : heif_chroma_interleaved_RGB;
    }
    if constexpr (QSysInfo::ByteOrder == QSysInfo::LittleEndian) {
        return form.hasAlpha ? heif_chroma_interleaved_RRGGBBAA_LE : heif_chroma_interleaved_RRGGBB_LE;
    } else {
        return form.hasAlpha ? heif_chroma_interleaved_RRGGBBAA_BE : heif_chroma_interleaved_RRGGBB_BE;
    }
}

/// Samples of `bits` bits as samples of 16 bits, rounded.
void widen(const std::uint16_t* input, std::int64_t count, int bits, std::uint16_t* output) {
    constexpr std::uint32_t full = 65535;
    const std::uint32_t largest = (std::uint32_t{1} << bits) - 1;
    std::transform(input, input + count, output, [&](std::uint16_t sample) {
        return static_cast<std::uint16_t>((std::min<std::uint32_t>(sample, largest) * full + largest / 2) /
                                          largest);
    });
}

/// The samples of a decoded image, side by side.
struct Plane {
    std::int64_t width = 0;
    std::int64_t height = 0;
    /// Bits of a sample.
    int depth = 0;
    const std::uint8_t* pixels = nullptr;
    int bytesPerRow = 0;
};

Plane planeOf(const heif_image* image) {
    constexpr heif_channel channel = heif_channel_interleaved;
    Plane plane{library().heif_image_get_width(image, channel),
                library().heif_image_get_height(image, channel),
                library().heif_image_get_bits_per_pixel_range(image, channel)};
    plane.pixels = library().heif_image_get_plane_readonly(image, channel, &plane.bytesPerRow);
    return plane;
}

class HeifReader final : public TwoStepReader {
public:
    HeifReader(DecodedImage image, const Plane& plane, const SampleForm& form, RowConversion conversion)
        : TwoStepReader(plane.width, plane.height, plane.width * form.bytesPerPixel()),
          m_image(std::move(image)),
          m_plane(plane),
          m_form(form),
          m_conversion(std::move(conversion)) {}

private:
    void decodeRows(std::int64_t count, std::uint8_t* samples) override {
        for (std::int64_t row = 0; row < count; ++row) {
            const std::uint8_t* from = m_plane.pixels + (m_decodedRows + row) * m_plane.bytesPerRow;
            std::uint8_t* to = samples + row * samplesPerRow();
            if (m_form.bits == 8) {
                std::copy_n(from, samplesPerRow(), to);
            } else {
                widen(reinterpret_cast<const std::uint16_t*>(from), width() * m_form.channels, m_plane.depth,
                      reinterpret_cast<std::uint16_t*>(to));
            }
        }
        m_decodedRows += count;
    }

    void convertRows(std::int64_t count, std::uint8_t* samples, std::uint8_t* pixels) override {
        m_conversion(samples, count * width(), pixels);
    }

    DecodedImage m_image;
    /// A view of the image.
    Plane m_plane;
    SampleForm m_form;
    std::int64_t m_decodedRows = 0;
    RowConversion m_conversion;
};

}  // namespace

bool isHeif(const QByteArray& bytes) {
    constexpr std::array<std::string_view, 10> brands{"heic", "heix", "hevc", "heim", "heis",
                                                      "hevm", "hevs", "mif1", "msf1", "avif"};
    // After the size of the first box.
    const QByteArray typeAndBrand = bytes.mid(4, 8);
    return typeAndBrand.size() == 8 && typeAndBrand.startsWith("ftyp") &&
           std::any_of(brands.begin(), brands.end(),
                       [&](std::string_view brand) { return typeAndBrand.endsWith(QByteArrayView(brand)); });
}

OpenedImage openHeif(const QByteArray& bytes, ColorHandling handling) {
    const std::optional<QByteArray> file = withoutOrientation(bytes);
    if (!file || !hasWholeCodedImages(*file)) {
        throw DecodeError(DecodeProblem::damaged);
    }
    // No image of the file may have a side above this, not even one that is not asked for: the library would
    // take memory for it.
    constexpr int longestSide = 1 << 14;
    const Context context(library().heif_context_alloc());
    library().heif_context_set_maximum_image_size_limit(context.get(), longestSide);
    expectOk(library().heif_context_read_from_memory_without_copy(
        context.get(), file->constData(), static_cast<std::size_t>(file->size()), nullptr));
    heif_image_handle* primary = nullptr;
    expectOk(library().heif_context_get_primary_image_handle(context.get(), &primary));
    const ImageHandle handle(primary);
    if (!isPlausibleSize(library().heif_image_handle_get_width(primary),
                         library().heif_image_handle_get_height(primary), file->size())) {
        throw DecodeError(DecodeProblem::damaged);
    }
    const SampleForm form = formOf(primary);
    heif_image* decoded = nullptr;
    expectOk(library().heif_decode_image(primary, &decoded, heif_colorspace_RGB, chromaOf(form), nullptr));
    DecodedImage image(decoded);
    const Plane plane = planeOf(decoded);
    const std::int64_t width = library().heif_image_handle_get_width(primary);
    const std::int64_t height = library().heif_image_handle_get_height(primary);
    const bool hasSize = plane.width == width && plane.height == height;
    // Some encoders declare the size that the image has once it is rotated.
    const bool hasSizeOfRotated = plane.width == height && plane.height == width && *file != bytes;
    constexpr int largestDepth = 16;
    if (!(hasSize || hasSizeOfRotated) || plane.pixels == nullptr || plane.depth < 1 ||
        plane.depth > largestDepth || plane.bytesPerRow < plane.width * form.bytesPerPixel()) {
        throw DecodeError(DecodeProblem::damaged);
    }
    FileConversion conversion =
        rowConversion(form, {embeddedProfile(primary), [&] { return profileOfCode(primary); }, handling});
    return {std::make_unique<HeifReader>(std::move(image), plane, form, std::move(conversion.convert)),
            conversion.convertedFrom};
}

}  // namespace quarlin

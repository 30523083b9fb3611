#include "imaging/decode/formats/jpeg_decompressor.h"

#include "imaging/base/pixel_size.h"
#include "imaging/decode/decode_error.h"

#include <algorithm>
#include <array>
#include <csetjmp>
#include <cstdio>
// The library's header needs FILE before it.
#include <jpeglib.h>
// This one needs the library's header.
#include <jerror.h>
#include <string_view>
#include <utility>

namespace quarlin {

/// The library's state, with what its callbacks need.
struct JpegDecompressor::Library {
    jpeg_decompress_struct jpeg{};
    jpeg_error_mgr errors{};
    std::jmp_buf failure{};
    bool hasDamage = false;
    bool hasNoEnd = false;

    Library() {
        jpeg.err = jpeg_std_error(&errors);
        errors.emit_message = noteWarning;
        errors.error_exit = leave;
        jpeg.client_data = this;
    }

    static void noteWarning(j_common_ptr common, int level) {
        if (level >= 0) {
            return;
        }
        auto* library = static_cast<Library*>(common->client_data);
        switch (common->err->msg_code) {
            // What a segment says contradicts another one, but there is no doubt how to decode the picture.
            case JWRN_ADOBE_XFORM:
            case JWRN_BOGUS_ICC:
            case JWRN_BOGUS_PROGRESSION:
            case JWRN_JFIF_MAJOR:
            case JWRN_NOT_SEQUENTIAL:
                break;
            case JWRN_JPEG_EOF:
                library->hasNoEnd = true;
                break;
            default:
                library->hasDamage = true;
        }
    }
    [[noreturn]] static void leave(j_common_ptr common) {
        std::longjmp(static_cast<Library*>(common->client_data)->failure, 1);
    }

    /// Calls functions of the library; false if one of them fails. A failure jumps out of `work`, so nothing
    /// in there may need a destructor.
    template <typename Work>
    bool succeeds(const Work& work) {
        if (setjmp(failure) != 0) {
            return false;
        }
        work();
        return true;
    }
};

JpegDecompressor::JpegDecompressor(QByteArray bytes, JpegExtent extent)
    : m_bytes(std::move(bytes)), m_extent(extent), m_library(std::make_unique<Library>()) {
    jpeg_decompress_struct& jpeg = m_library->jpeg;
    const bool isOpen = m_library->succeeds([&] {
        constexpr int profileMarker = JPEG_APP0 + 2;
        constexpr unsigned wholeMarker = 0xffff;
        jpeg_create_decompress(&jpeg);
        jpeg_mem_src(&jpeg, reinterpret_cast<const unsigned char*>(m_bytes.constData()),
                     static_cast<unsigned long>(m_bytes.size()));
        jpeg_save_markers(&jpeg, profileMarker, wholeMarker);
        jpeg_read_header(&jpeg, TRUE);
        jpeg_calc_output_dimensions(&jpeg);
    });
    if (!isOpen || !isPlausibleSize(jpeg.image_width, jpeg.image_height, m_bytes.size())) {
        jpeg_destroy_decompress(&jpeg);
        fail();
    }
}

JpegDecompressor::~JpegDecompressor() { jpeg_destroy_decompress(&m_library->jpeg); }

std::int64_t JpegDecompressor::width() const { return m_library->jpeg.image_width; }
std::int64_t JpegDecompressor::height() const { return m_library->jpeg.image_height; }
int JpegDecompressor::channels() const { return m_library->jpeg.out_color_components; }
bool JpegDecompressor::isCmyk() const { return m_library->jpeg.out_color_space == JCS_CMYK; }

QByteArray JpegDecompressor::colorProfile() const {
    // Each marker holds a part of the profile: this text, the number of the part from 1, the number of parts.
    constexpr std::string_view title("ICC_PROFILE\0", 12);
    constexpr qsizetype headSize = 14;
    std::array<QByteArrayView, 255> parts;
    for (jpeg_saved_marker_ptr marker = m_library->jpeg.marker_list; marker != nullptr;
         marker = marker->next) {
        const QByteArrayView data(marker->data, static_cast<qsizetype>(marker->data_length));
        if (data.size() > headSize && data.startsWith(QByteArrayView(title))) {
            const auto number = static_cast<std::uint8_t>(data[title.size()]);
            if (number > 0) {
                parts[number - std::size_t{1}] = data.sliced(headSize);
            }
        }
    }
    QByteArray profile;
    for (auto part = parts.begin(); part != parts.end() && !part->isEmpty(); ++part) {
        profile += *part;
    }
    return profile;
}

void JpegDecompressor::fail() const {
    const bool lacksMemory = m_library->errors.msg_code == JERR_OUT_OF_MEMORY;
    throw DecodeError(lacksMemory ? DecodeProblem::tooLarge : DecodeProblem::damaged);
}

/// Whether the scans that have been read give each coefficient all of its bits. Codes that are missing inside
/// of a scan are damage, whole scans are not.
bool JpegDecompressor::hasEveryCoefficient() const {
    const jpeg_decompress_struct& jpeg = m_library->jpeg;
    for (int component = 0; component < jpeg.num_components; ++component) {
        // Kept from the first scan of a component.
        if (jpeg.comp_info[component].quant_table == nullptr) {
            return false;
        }
        // The number of lowest bits that are not known yet.
        if (jpeg.progressive_mode != 0 &&
            !std::all_of(jpeg.coef_bits[component], jpeg.coef_bits[component] + DCTSIZE2,
                         [](int bits) { return bits == 0; })) {
            return false;
        }
    }
    return true;
}

void JpegDecompressor::expectNoDamage() const {
    const bool isIncomplete =
        m_library->hasNoEnd && (m_extent == JpegExtent::wholeFile || !hasEveryCoefficient());
    if (m_library->hasDamage || isIncomplete) {
        throw DecodeError(DecodeProblem::damaged);
    }
}

/// Reads what follows the last row, up to the end marker.
void JpegDecompressor::readEnd() {
    const bool isRead = m_library->succeeds([&] { jpeg_finish_decompress(&m_library->jpeg); });
    // The coefficients are gone, and have been checked.
    if (!isRead || m_library->hasDamage || (m_extent == JpegExtent::wholeFile && m_library->hasNoEnd)) {
        throw DecodeError(DecodeProblem::damaged);
    }
}

void JpegDecompressor::readRow(std::uint8_t* samples) {
    jpeg_decompress_struct& jpeg = m_library->jpeg;
    const bool isRead = m_library->succeeds([&] {
        // Of several scans, all are read here.
        if (!m_isStarted) {
            m_isStarted = true;
            jpeg_start_decompress(&jpeg);
        }
        JSAMPROW row = samples;
        jpeg_read_scanlines(&jpeg, &row, 1);
    });
    if (!isRead) {
        fail();
    }
    expectNoDamage();
    if (m_extent != JpegExtent::rows && jpeg.output_scanline == jpeg.output_height) {
        readEnd();
    }
    // Files of inks hold the amount of light, as image editors write them.
    if (isCmyk()) {
        std::transform(samples, samples + width() * channels(), samples,
                       [](std::uint8_t sample) { return static_cast<std::uint8_t>(255 - sample); });
    }
}

}  // namespace quarlin

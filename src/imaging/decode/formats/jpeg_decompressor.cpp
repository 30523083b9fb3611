#include "imaging/decode/formats/jpeg_decompressor.h"

#include "imaging/base/pixel_size.h"
#include "imaging/decode/decode_error.h"

#include <algorithm>
#include <array>
#include <csetjmp>
#include <cstdio>
#include <exception>
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
    jpeg_source_mgr input{};
    BlockReader blocks;
    /// What reading the input threw: exceptions can't pass through the library.
    std::exception_ptr inputFailure;
    std::jmp_buf failure{};
    bool hasDamage = false;
    bool hasNoEnd = false;

    explicit Library(BlockReader input_) : blocks(std::move(input_)) {
        jpeg.err = jpeg_std_error(&errors);
        errors.emit_message = noteWarning;
        errors.error_exit = leave;
        jpeg.client_data = this;
        input.init_source = [](j_decompress_ptr) {};
        input.fill_input_buffer = readBlock;
        input.skip_input_data = skip;
        input.resync_to_restart = jpeg_resync_to_restart;
        input.term_source = [](j_decompress_ptr) {};
    }

    static Library& of(void* clientData) { return *static_cast<Library*>(clientData); }

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
    [[noreturn]] static void leave(j_common_ptr common) { std::longjmp(of(common->client_data).failure, 1); }

    static boolean readBlock(j_decompress_ptr jpeg) {
        if (!of(jpeg->client_data).fillInput()) {
            leave(reinterpret_cast<j_common_ptr>(jpeg));
        }
        return TRUE;
    }

    static void skip(j_decompress_ptr jpeg, long count) {
        jpeg_source_mgr& input = *jpeg->src;
        while (count > static_cast<long>(input.bytes_in_buffer)) {
            count -= static_cast<long>(input.bytes_in_buffer);
            readBlock(jpeg);
        }
        if (count > 0) {
            input.next_input_byte += count;
            input.bytes_in_buffer -= static_cast<std::size_t>(count);
        }
    }

    /// False if reading has failed.
    bool fillInput() {
        static constexpr std::array<JOCTET, 2> endMarker{0xff, JPEG_EOI};
        try {
            const QByteArrayView block = blocks.next();
            input.next_input_byte = reinterpret_cast<const JOCTET*>(block.data());
            input.bytes_in_buffer = static_cast<std::size_t>(block.size());
        } catch (...) {
            inputFailure = std::current_exception();
            return false;
        }
        if (input.bytes_in_buffer == 0) {
            // The file ends too soon: the library needs an end to stop at.
            hasNoEnd = true;
            input.next_input_byte = endMarker.data();
            input.bytes_in_buffer = endMarker.size();
        }
        return true;
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

JpegDecompressor::JpegDecompressor(std::shared_ptr<ByteSource> source, std::vector<ByteRange> parts,
                                   JpegExtent extent)
    : m_extent(extent) {
    const std::int64_t fileSize = source->size();
    m_library = std::make_unique<Library>(BlockReader(std::move(source), std::move(parts)));
    jpeg_decompress_struct& jpeg = m_library->jpeg;
    const bool isOpen = m_library->succeeds([&] {
        constexpr int profileMarker = JPEG_APP0 + 2;
        constexpr unsigned wholeMarker = 0xffff;
        jpeg_create_decompress(&jpeg);
        jpeg.src = &m_library->input;
        jpeg_save_markers(&jpeg, profileMarker, wholeMarker);
        jpeg_read_header(&jpeg, TRUE);
        jpeg_calc_output_dimensions(&jpeg);
    });
    if (!isOpen || !isPlausibleSize(jpeg.image_width, jpeg.image_height, fileSize)) {
        jpeg_destroy_decompress(&jpeg);
        refuse();
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

void JpegDecompressor::refuse() const {
    if (m_library->inputFailure) {
        std::rethrow_exception(m_library->inputFailure);
    }
    throw DecodeError(DecodeProblem::damaged);
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
        refuse();
    }
}

/// Reads what follows the last row, up to the end marker.
void JpegDecompressor::readEnd() {
    const bool isRead = m_library->succeeds([&] { jpeg_finish_decompress(&m_library->jpeg); });
    // The coefficients are gone, and have been checked.
    if (!isRead || m_library->hasDamage || (m_extent == JpegExtent::wholeFile && m_library->hasNoEnd)) {
        refuse();
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
        refuse();
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

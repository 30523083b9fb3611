#include "imaging/decode/jpeg_decoder.h"

#include "imaging/base/parallel.h"
#include "imaging/decode/jpeg_padding.h"
#include "imaging/decode/vips_decoder.h"
#include "imaging/pixels/image_view.h"

#include <csetjmp>
#include <cstdio>
// The library's header needs FILE before it.
#include <jpeglib.h>

namespace quarlin {

namespace {

/// What the library reports to: a warning is noted, an error leaves the decoding.
struct ErrorReport {
    jpeg_error_mgr manager;
    std::jmp_buf exit;
};

void noteWarning(j_common_ptr jpeg, int level) {
    if (level < 0) {
        ++jpeg->err->num_warnings;
    }
}

[[noreturn]] void leave(j_common_ptr jpeg) {
    std::longjmp(reinterpret_cast<ErrorReport*>(jpeg->err)->exit, 1);
}

/// How much of a file has to be without flaw.
enum class Extent {
    /// The picture, if libvips may have missed a flaw in it: where it decodes row by row, it looks for
    /// warnings only before each row of blocks, so that it never hears of those in the last.
    lastRows,
    /// Everything up to the end marker: nothing is missing and nothing left over.
    all,
};

/// Whether the file decodes without a warning. Only the codes are of interest, so it is decoded at the
/// smallest size.
bool isFlawless(const QByteArray& bytes, Extent extent) {
    ErrorReport report{};
    jpeg_decompress_struct jpeg{};
    jpeg.err = jpeg_std_error(&report.manager);
    report.manager.emit_message = noteWarning;
    report.manager.error_exit = leave;
    // Nothing between here and the end needs a destructor, which a long jump would pass over.
    if (setjmp(report.exit) != 0) {
        jpeg_destroy_decompress(&jpeg);
        return false;
    }
    jpeg_create_decompress(&jpeg);
    jpeg_mem_src(&jpeg, reinterpret_cast<const unsigned char*>(bytes.constData()),
                 static_cast<unsigned long>(bytes.size()));
    jpeg_read_header(&jpeg, TRUE);
    if (!isUsableSize(jpeg.image_width, jpeg.image_height)) {
        leave(reinterpret_cast<j_common_ptr>(&jpeg));
    }
    if (extent == Extent::lastRows && jpeg_has_multiple_scans(&jpeg) != 0) {
        jpeg_destroy_decompress(&jpeg);
        return true;
    }
    jpeg.scale_num = 1;
    jpeg.scale_denom = 8;
    jpeg.out_color_space = jpeg.jpeg_color_space;
    jpeg_start_decompress(&jpeg);
    JSAMPARRAY row =
        jpeg.mem->alloc_sarray(reinterpret_cast<j_common_ptr>(&jpeg), JPOOL_IMAGE,
                               jpeg.output_width * static_cast<JDIMENSION>(jpeg.output_components), 1);
    while (jpeg.output_scanline < jpeg.output_height && jpeg.err->num_warnings == 0) {
        jpeg_read_scanlines(&jpeg, row, 1);
    }
    if (extent == Extent::all && jpeg.err->num_warnings == 0) {
        jpeg_finish_decompress(&jpeg);
    }
    const bool flawless = jpeg.err->num_warnings == 0;
    jpeg_destroy_decompress(&jpeg);
    return flawless;
}

}  // namespace

bool isJpeg(const QByteArray& bytes) { return bytes.startsWith("\xff\xd8\xff"); }

QImage decodeJpeg(const QByteArray& bytes) {
    const JpegParts parts = jpegParts(bytes);
    if (parts.withoutZeros != parts.clean) {
        for (const QByteArray& candidate : {parts.clean, parts.withoutZeros}) {
            if (isFlawless(candidate, Extent::all)) {
                return decodeWithVips(candidate);
            }
        }
        return {};
    }
    // Both take one core each.
    QImage image;
    bool isWhole = false;
    forEachInParallel(2, [&](std::int64_t index) {
        if (index == 0) {
            image = decodeWithVips(parts.clean);
        } else {
            isWhole = isFlawless(parts.clean, Extent::lastRows);
        }
    });
    return isWhole ? image : QImage();
}

}  // namespace quarlin

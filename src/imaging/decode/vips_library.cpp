#include "imaging/decode/vips_library.h"

#include "imaging/decode/decode_error.h"
#include "imaging/decode/loaded_library.h"

#include <optional>

namespace quarlin {

using namespace Qt::StringLiterals;

namespace {

/// Returns nothing if the library, or a function in it, is missing.
std::optional<VipsFunctions> loadedFunctions() {
    LoadedLibrary library(u"vips"_s, VIPS_LIBRARY_CURRENT - VIPS_LIBRARY_AGE);
    VipsFunctions functions;
    library.find(functions.g_log_set_handler, "g_log_set_handler");
    library.find(functions.g_object_unref, "g_object_unref");
    library.find(functions.vips_area_unref, "vips_area_unref");
    library.find(functions.vips_blob_get, "vips_blob_get");
    library.find(functions.vips_block_untrusted_set, "vips_block_untrusted_set");
    library.find(functions.vips_cache_set_max, "vips_cache_set_max");
    library.find(functions.vips_cast_uchar, "vips_cast_uchar");
    library.find(functions.vips_colourspace, "vips_colourspace");
    library.find(functions.vips_concurrency_set, "vips_concurrency_set");
    library.find(functions.vips_error_buffer, "vips_error_buffer");
    library.find(functions.vips_error_clear, "vips_error_clear");
    library.find(functions.vips_foreign_find_load_buffer, "vips_foreign_find_load_buffer");
    library.find(functions.vips_image_get_bands, "vips_image_get_bands");
    library.find(functions.vips_image_get_blob, "vips_image_get_blob");
    library.find(functions.vips_image_get_format, "vips_image_get_format");
    library.find(functions.vips_image_get_height, "vips_image_get_height");
    library.find(functions.vips_image_get_typeof, "vips_image_get_typeof");
    library.find(functions.vips_image_get_width, "vips_image_get_width");
    library.find(functions.vips_image_guess_interpretation, "vips_image_guess_interpretation");
    library.find(functions.vips_image_hasalpha, "vips_image_hasalpha");
    library.find(functions.vips_image_new_from_buffer, "vips_image_new_from_buffer");
    library.find(functions.vips_init, "vips_init");
    library.find(functions.vips_profile_load, "vips_profile_load");
    library.find(functions.vips_region_new, "vips_region_new");
    library.find(functions.vips_region_prepare, "vips_region_prepare");
    return library.isComplete() ? std::optional(functions) : std::nullopt;
}

std::optional<VipsFunctions> startedLibrary() {
    const std::optional<VipsFunctions> vips = loadedFunctions();
    if (!vips || vips->vips_init("quarlin") != 0) {
        return std::nullopt;
    }
    // Files come from anywhere: loaders that were never fuzzed stay blocked.
    vips->vips_block_untrusted_set(TRUE);
    // The same buffer may hold another image next time: nothing is remembered.
    vips->vips_cache_set_max(0);
    // With several threads for one image, version 8.14 does not wait for the last one before it checks
    // whether any has failed: now and then, the error of a damaged row is lost.
    vips->vips_concurrency_set(1);
    // Messages of decoders are part of the result; they don't go to the terminal.
    vips->g_log_set_handler(
        "VIPS", static_cast<GLogLevelFlags>(G_LOG_LEVEL_MASK | G_LOG_FLAG_FATAL),
        [](const gchar*, GLogLevelFlags, const gchar*, gpointer) {}, nullptr);
    return vips;
}

}  // namespace

const VipsFunctions& vipsLibrary() {
    static const std::optional<VipsFunctions> vips = startedLibrary();
    if (!vips) {
        throw DecodeError(DecodeProblem::damaged);
    }
    return *vips;
}

}  // namespace quarlin

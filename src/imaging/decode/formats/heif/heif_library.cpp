#include "imaging/decode/formats/heif/heif_library.h"

#include "imaging/decode/decode_error.h"
#include "imaging/decode/loaded_library.h"

#include <optional>

namespace quarlin {

using namespace Qt::StringLiterals;

namespace {

/// Returns nothing if the library, or a function in it, is missing.
std::optional<HeifFunctions> loadedFunctions() {
    constexpr int majorVersion = LIBHEIF_NUMERIC_VERSION >> 24;
    LoadedLibrary library(u"heif"_s, majorVersion);
    HeifFunctions functions;
    library.find(functions.heif_context_alloc, "heif_context_alloc");
    library.find(functions.heif_context_free, "heif_context_free");
    library.find(functions.heif_context_get_primary_image_handle, "heif_context_get_primary_image_handle");
    library.find(functions.heif_context_read_from_memory_without_copy,
                 "heif_context_read_from_memory_without_copy");
    library.find(functions.heif_context_set_maximum_image_size_limit,
                 "heif_context_set_maximum_image_size_limit");
    library.find(functions.heif_decode_image, "heif_decode_image");
    library.find(functions.heif_image_get_bits_per_pixel_range, "heif_image_get_bits_per_pixel_range");
    library.find(functions.heif_image_get_height, "heif_image_get_height");
    library.find(functions.heif_image_get_plane_readonly, "heif_image_get_plane_readonly");
    library.find(functions.heif_image_get_width, "heif_image_get_width");
    library.find(functions.heif_image_handle_get_height, "heif_image_handle_get_height");
    library.find(functions.heif_image_handle_get_luma_bits_per_pixel,
                 "heif_image_handle_get_luma_bits_per_pixel");
    library.find(functions.heif_image_handle_get_nclx_color_profile,
                 "heif_image_handle_get_nclx_color_profile");
    library.find(functions.heif_image_handle_get_raw_color_profile,
                 "heif_image_handle_get_raw_color_profile");
    library.find(functions.heif_image_handle_get_raw_color_profile_size,
                 "heif_image_handle_get_raw_color_profile_size");
    library.find(functions.heif_image_handle_get_width, "heif_image_handle_get_width");
    library.find(functions.heif_image_handle_has_alpha_channel, "heif_image_handle_has_alpha_channel");
    library.find(functions.heif_image_handle_is_premultiplied_alpha,
                 "heif_image_handle_is_premultiplied_alpha");
    library.find(functions.heif_image_handle_release, "heif_image_handle_release");
    library.find(functions.heif_image_release, "heif_image_release");
    library.find(functions.heif_nclx_color_profile_free, "heif_nclx_color_profile_free");
    return library.isComplete() ? std::optional(functions) : std::nullopt;
}

}  // namespace

const HeifFunctions& heifLibrary() {
    static const std::optional<HeifFunctions> heif = loadedFunctions();
    if (!heif) {
        throw DecodeError(DecodeProblem::damaged);
    }
    return *heif;
}

}  // namespace quarlin

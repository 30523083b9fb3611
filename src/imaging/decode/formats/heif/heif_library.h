#pragma once

#include <libheif/heif.h>

namespace quarlin {

/// The functions of libheif that are used. They are looked up in the loaded library instead of being linked:
/// with its coders it would take a third of the time that a program needs to start.
struct HeifFunctions {
    decltype(&::heif_context_alloc) heif_context_alloc;
    decltype(&::heif_context_free) heif_context_free;
    decltype(&::heif_context_get_primary_image_handle) heif_context_get_primary_image_handle;
    decltype(&::heif_context_read_from_memory_without_copy) heif_context_read_from_memory_without_copy;
    decltype(&::heif_context_set_maximum_image_size_limit) heif_context_set_maximum_image_size_limit;
    decltype(&::heif_decode_image) heif_decode_image;
    decltype(&::heif_image_get_bits_per_pixel_range) heif_image_get_bits_per_pixel_range;
    decltype(&::heif_image_get_height) heif_image_get_height;
    decltype(&::heif_image_get_plane_readonly) heif_image_get_plane_readonly;
    decltype(&::heif_image_get_width) heif_image_get_width;
    decltype(&::heif_image_handle_get_height) heif_image_handle_get_height;
    decltype(&::heif_image_handle_get_luma_bits_per_pixel) heif_image_handle_get_luma_bits_per_pixel;
    decltype(&::heif_image_handle_get_nclx_color_profile) heif_image_handle_get_nclx_color_profile;
    decltype(&::heif_image_handle_get_raw_color_profile) heif_image_handle_get_raw_color_profile;
    decltype(&::heif_image_handle_get_raw_color_profile_size) heif_image_handle_get_raw_color_profile_size;
    decltype(&::heif_image_handle_get_width) heif_image_handle_get_width;
    decltype(&::heif_image_handle_has_alpha_channel) heif_image_handle_has_alpha_channel;
    decltype(&::heif_image_handle_is_premultiplied_alpha) heif_image_handle_is_premultiplied_alpha;
    decltype(&::heif_image_handle_release) heif_image_handle_release;
    decltype(&::heif_image_release) heif_image_release;
    decltype(&::heif_nclx_color_profile_free) heif_nclx_color_profile_free;
};

/// Loads libheif, once for the process. Throws `DecodeError` if that is not possible.
const HeifFunctions& heifLibrary();

}  // namespace quarlin

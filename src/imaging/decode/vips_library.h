#pragma once

#include <vips/vips.h>

namespace quarlin {

/// The functions of libvips, and of the libraries below it, that are used. They are looked up in the loaded
/// library instead of being linked: libvips brings a hundred other libraries, which would take 30 of the 40
/// milliseconds that a program needs to start, and few files need it.
struct VipsFunctions {
    decltype(&::g_log_set_handler) g_log_set_handler;
    decltype(&::g_object_unref) g_object_unref;
    decltype(&::vips_area_unref) vips_area_unref;
    decltype(&::vips_blob_get) vips_blob_get;
    decltype(&::vips_block_untrusted_set) vips_block_untrusted_set;
    decltype(&::vips_cache_set_max) vips_cache_set_max;
    decltype(&::vips_cast_uchar) vips_cast_uchar;
    decltype(&::vips_colourspace) vips_colourspace;
    decltype(&::vips_concurrency_set) vips_concurrency_set;
    decltype(&::vips_error_buffer) vips_error_buffer;
    decltype(&::vips_error_clear) vips_error_clear;
    decltype(&::vips_foreign_find_load_buffer) vips_foreign_find_load_buffer;
    decltype(&::vips_image_get_bands) vips_image_get_bands;
    decltype(&::vips_image_get_blob) vips_image_get_blob;
    decltype(&::vips_image_get_format) vips_image_get_format;
    decltype(&::vips_image_get_height) vips_image_get_height;
    decltype(&::vips_image_get_typeof) vips_image_get_typeof;
    decltype(&::vips_image_get_width) vips_image_get_width;
    decltype(&::vips_image_guess_interpretation) vips_image_guess_interpretation;
    decltype(&::vips_image_hasalpha) vips_image_hasalpha;
    decltype(&::vips_image_new_from_buffer) vips_image_new_from_buffer;
    decltype(&::vips_init) vips_init;
    decltype(&::vips_profile_load) vips_profile_load;
    decltype(&::vips_region_new) vips_region_new;
    decltype(&::vips_region_prepare) vips_region_prepare;
};

/// Loads libvips, starts it and makes its settings, once for the process, which takes some 80 milliseconds.
/// Throws `DecodeError` if that is not possible.
const VipsFunctions& vipsLibrary();

}  // namespace quarlin

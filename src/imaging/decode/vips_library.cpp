#include "imaging/decode/vips_library.h"

#include "imaging/decode/decode_error.h"

#include <vips/vips.h>

#include <mutex>

namespace quarlin {

using namespace Qt::StringLiterals;

namespace {

bool start() {
    if (vips_init("quarlin") != 0) {
        return false;
    }
    // Files come from anywhere: loaders that were never fuzzed stay blocked.
    vips_block_untrusted_set(TRUE);
    // The same buffer may hold another image next time: nothing is remembered.
    vips_cache_set_max(0);
    // With several threads for one image, version 8.14 does not wait for the last one before it checks
    // whether any has failed: now and then, the error of a damaged row is lost.
    vips_concurrency_set(1);
    // Messages of decoders are part of the result; they don't go to the terminal.
    g_log_set_handler(
        "VIPS", static_cast<GLogLevelFlags>(G_LOG_LEVEL_MASK | G_LOG_FLAG_FATAL),
        [](const gchar*, GLogLevelFlags, const gchar*, gpointer) {}, nullptr);
    return true;
}

}  // namespace

void startVips() {
    static std::once_flag once;
    static bool isStarted = false;
    std::call_once(once, [] { isStarted = start(); });
    if (!isStarted) {
        throw DecodeError(DecodeProblem::damaged);
    }
}

std::optional<NamedProfile> defaultCmykProfile() {
    startVips();
    VipsBlob* blob = nullptr;
    if (vips_profile_load("cmyk", &blob, nullptr) != 0) {
        vips_error_clear();
        return std::nullopt;
    }
    std::size_t size = 0;
    const void* data = vips_blob_get(blob, &size);
    QByteArray bytes(static_cast<const char*>(data), static_cast<qsizetype>(size));
    vips_area_unref(VIPS_AREA(blob));
    return NamedProfile{bytes, u"built-in CMYK profile"_s};
}

}  // namespace quarlin

#include "imaging/decode/default_cmyk_profile.h"

#include "imaging/decode/vips_library.h"

#include <QByteArray>

namespace quarlin {

using namespace Qt::StringLiterals;

std::optional<NamedProfile> defaultCmykProfile() {
    const VipsFunctions& vips = vipsLibrary();
    VipsBlob* blob = nullptr;
    if (vips.vips_profile_load("cmyk", &blob, nullptr) != 0) {
        vips.vips_error_clear();
        return std::nullopt;
    }
    std::size_t size = 0;
    const void* data = vips.vips_blob_get(blob, &size);
    QByteArray bytes(static_cast<const char*>(data), static_cast<qsizetype>(size));
    vips.vips_area_unref(reinterpret_cast<VipsArea*>(blob));
    return NamedProfile{bytes, u"built-in CMYK profile"_s};
}

}  // namespace quarlin

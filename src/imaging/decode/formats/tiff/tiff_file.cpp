#include "imaging/decode/formats/tiff/tiff_file.h"

#include "imaging/decode/decode_error.h"

#include <algorithm>
#include <cstdarg>
#include <cstdio>
#include <string_view>
#include <utility>

namespace quarlin {

struct TiffFile::Source {
    QByteArray bytes;
    qsizetype position = 0;
    bool isIncomplete = false;

    static Source& of(thandle_t handle) { return *static_cast<Source*>(handle); }

    static tmsize_t read(thandle_t handle, void* buffer, tmsize_t size) {
        Source& source = of(handle);
        const qsizetype left = std::max<qsizetype>(source.bytes.size() - source.position, 0);
        const qsizetype count = std::clamp<qsizetype>(size, 0, left);
        std::copy_n(source.bytes.constData() + (source.bytes.size() - left), count,
                    static_cast<char*>(buffer));
        source.position += count;
        return count;
    }
    static toff_t seek(thandle_t handle, toff_t offset, int origin) {
        Source& source = of(handle);
        const auto base = static_cast<toff_t>(origin == SEEK_CUR   ? source.position
                                              : origin == SEEK_END ? source.bytes.size()
                                                                   : 0);
        // An offset may be any number. Nothing can be read behind the end, wherever that is.
        const auto end = static_cast<toff_t>(source.bytes.size());
        const toff_t place = base + offset;
        source.position = static_cast<qsizetype>(std::min(place, end));
        return place;
    }
    static toff_t sizeOf(thandle_t handle) { return static_cast<toff_t>(of(handle).bytes.size()); }
    static int map(thandle_t handle, void** base, toff_t* size) {
        // The library only reads: it is opened for that.
        *base = const_cast<char*>(of(handle).bytes.constData());
        *size = sizeOf(handle);
        return 1;
    }
    static int ignoreError(TIFF*, void*, const char*, const char*, va_list) { return 1; }

    /// Most warnings are about tags that nobody needs. Some codecs only warn where data are missing, and fill
    /// the gap.
    static int noteWarning(TIFF*, void* source, const char* module, const char* format, va_list) {
        const std::string_view codec(module != nullptr ? module : "");
        const std::string_view text(format);
        if (codec == "JPEGLib" || text.starts_with("Premature EOF")) {
            static_cast<Source*>(source)->isIncomplete = true;
        }
        return 1;
    }
};

TiffFile::TiffFile(QByteArray bytes) : m_source(std::make_unique<Source>()) {
    m_source->bytes = std::move(bytes);
    // Lists of strips and the like; pixels are never read into memory of the library.
    constexpr tmsize_t largestAllocation = tmsize_t{256} << 20;
    const std::unique_ptr<TIFFOpenOptions, decltype(&TIFFOpenOptionsFree)> options(TIFFOpenOptionsAlloc(),
                                                                                   TIFFOpenOptionsFree);
    TIFFOpenOptionsSetMaxSingleMemAlloc(options.get(), largestAllocation);
    TIFFOpenOptionsSetErrorHandlerExtR(options.get(), Source::ignoreError, nullptr);
    TIFFOpenOptionsSetWarningHandlerExtR(options.get(), Source::noteWarning, m_source.get());
    const auto writeNothing = [](thandle_t, void*, tmsize_t) -> tmsize_t { return 0; };
    const auto close = [](thandle_t) { return 0; };
    const auto unmap = [](thandle_t, void*, toff_t) {};
    m_tiff = TIFFClientOpenExt("", "r", m_source.get(), Source::read, writeNothing, Source::seek, close,
                               Source::sizeOf, Source::map, unmap, options.get());
    if (m_tiff == nullptr) {
        throw DecodeError(DecodeProblem::damaged);
    }
}

TiffFile::~TiffFile() { TIFFClose(m_tiff); }

std::int64_t TiffFile::size() const { return m_source->bytes.size(); }

void TiffFile::expect(bool isRead) const {
    if (!isRead || m_source->isIncomplete) {
        throw DecodeError(DecodeProblem::damaged);
    }
}

}  // namespace quarlin

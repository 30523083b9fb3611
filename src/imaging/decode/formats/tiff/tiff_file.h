#pragma once

#include <QByteArray>

#include <tiffio.h>

#include <memory>

namespace quarlin {

/// A TIFF file in memory, opened at its first page. To be used by one thread at a time.
class TiffFile {
public:
    /// Throws `DecodeError` if the first page can't be found.
    explicit TiffFile(QByteArray bytes);
    ~TiffFile();
    TiffFile(const TiffFile&) = delete;
    TiffFile& operator=(const TiffFile&) = delete;

    /// The library's handle.
    TIFF* handle() const { return m_tiff; }
    std::int64_t size() const;
    /// Throws `DecodeError` if `isRead` is false, or if a codec has reported that data are missing.
    void expect(bool isRead) const;

    /// The value of a tag with one number; `otherwise` if the page has no such tag.
    template <typename Number>
    Number valueOf(std::uint32_t tag, Number otherwise) const {
        Number value = otherwise;
        return TIFFGetField(m_tiff, tag, &value) == 1 ? value : otherwise;
    }

private:
    struct Source;

    std::unique_ptr<Source> m_source;
    TIFF* m_tiff = nullptr;
};

}  // namespace quarlin

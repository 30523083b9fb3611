#pragma once

#include "imaging/files/byte_source.h"

#include <QByteArray>

#include <cstdint>
#include <memory>
#include <vector>

namespace quarlin {

/// How much of a JPEG file has to be without flaw.
enum class JpegExtent {
    /// Everything up to the last row.
    rows,
    /// All scans: nothing is left over, and nothing but the end marker is missing.
    wholeScans,
    /// Everything up to the end marker: nothing is missing and nothing left over.
    wholeFile,
};

/// Decodes one JPEG file row by row. Throws what the source throws, and `DecodeError` if the file is damaged,
/// which nearly any warning of the library means. Unusual parameters are no damage, and neither is a missing
/// end marker if the picture is complete.
class JpegDecompressor {
public:
    /// Reads the header. The file consists of `parts` of the source.
    JpegDecompressor(std::shared_ptr<ByteSource> source, std::vector<ByteRange> parts, JpegExtent extent);
    ~JpegDecompressor();
    JpegDecompressor(const JpegDecompressor&) = delete;
    JpegDecompressor& operator=(const JpegDecompressor&) = delete;

    std::int64_t width() const;
    std::int64_t height() const;
    /// Samples per pixel: 1 gray, 3 RGB, 4 inks.
    int channels() const;
    bool isCmyk() const;
    /// The embedded ICC profile; empty if there is none.
    QByteArray colorProfile() const;

    /// Reads the next row of `width() * channels()` samples. Inks are 0 for none and 255 for all.
    void readRow(std::uint8_t* samples);

private:
    struct Library;

    [[noreturn]] void refuse() const;
    void expectNoDamage() const;
    bool hasEveryCoefficient() const;
    void readEnd();

    JpegExtent m_extent;
    std::unique_ptr<Library> m_library;
    bool m_isStarted = false;
};

}  // namespace quarlin

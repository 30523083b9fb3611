#pragma once

#include <QByteArray>

#include <cstdint>
#include <optional>

namespace quarlin {

/// The headers of a Windows or OS/2 bitmap file.
struct BmpHeader {
    std::int64_t width = 0;
    std::int64_t height = 0;
    /// The first row of the file is the top one.
    bool isTopDown = false;
    std::int64_t bitsPerPixel = 0;
    /// As the file numbers it: 1 and 2 are run-length codes of 8 and of 4 bits, 3 and 6 have masks.
    std::uint32_t compression = 0;
    /// Where the palette begins, how many colors it has, and the bytes of each.
    qsizetype palette = 0;
    std::int64_t colors = 0;
    qsizetype bytesPerColor = 4;
    /// Where the pixels begin.
    qsizetype pixels = 0;

    bool isRunLengthCoded() const { return compression == 1 || compression == 2; }
    qsizetype paletteEnd() const { return palette + static_cast<qsizetype>(colors) * bytesPerColor; }
};

/// Reads the headers of a bitmap file; nothing if they are not complete.
std::optional<BmpHeader> readBmpHeader(const QByteArray& file);

/// Whether the bytes are a bitmap without its file header, as clipboards and resources hold it.
bool isBareBmp(const QByteArray& bytes);

/// A bitmap without a file header as a file; any other bytes unchanged. And if the palette of an OS/2 bitmap
/// has fewer colors than it should have, the others are black.
QByteArray completedBmp(const QByteArray& bytes);

}  // namespace quarlin

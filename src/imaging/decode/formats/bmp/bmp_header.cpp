#include "imaging/decode/formats/bmp/bmp_header.h"

#include <QtEndian>

#include <algorithm>
#include <array>
#include <cstdlib>

namespace quarlin {

namespace {

constexpr qsizetype fileHeaderSize = 14;
constexpr qsizetype coreHeaderSize = 12;
constexpr qsizetype infoHeaderSize = 40;
/// Where the file header says where the pixels begin.
constexpr qsizetype pixelsPlace = 10;

template <typename T>
T valueAt(const QByteArray& bytes, qsizetype offset) {
    return qFromLittleEndian<T>(bytes.constData() + offset);
}

bool hasCoreHeader(const QByteArray& file) {
    return valueAt<std::uint32_t>(file, fileHeaderSize) == coreHeaderSize;
}

/// A file header for pixels that begin at `pixels`.
QByteArray fileHeader(qsizetype pixels) {
    QByteArray header(fileHeaderSize, '\0');
    header.replace(0, 2, "BM");
    qToLittleEndian(static_cast<std::uint32_t>(pixels), header.data() + pixelsPlace);
    return header;
}

/// A bare bitmap with a file header. Its pixels begin where the headers and the palette end.
QByteArray withFileHeader(const QByteArray& bare) {
    const QByteArray file = fileHeader(0) + bare;
    const std::optional<BmpHeader> header = readBmpHeader(file);
    return header ? fileHeader(header->paletteEnd()) + bare : file;
}

/// A file of OS/2 whose pixels begin where its palette should end.
QByteArray withWholePalette(const QByteArray& file) {
    const std::optional<BmpHeader> header = readBmpHeader(file);
    if (!header || !hasCoreHeader(file) || header->pixels < header->palette || header->pixels > file.size()) {
        return file;
    }
    const qsizetype missing = header->paletteEnd() - header->pixels;
    if (missing <= 0) {
        return file;
    }
    return fileHeader(header->paletteEnd()) + file.sliced(fileHeaderSize, header->pixels - fileHeaderSize) +
           QByteArray(missing, '\0') + file.sliced(header->pixels);
}

}  // namespace

std::optional<BmpHeader> readBmpHeader(const QByteArray& file) {
    constexpr std::uint32_t bitFields = 3;
    constexpr std::int64_t mostPaletteBits = 8;
    if (file.size() < fileHeaderSize + coreHeaderSize) {
        return std::nullopt;
    }
    const qsizetype size = valueAt<std::uint32_t>(file, fileHeaderSize);
    BmpHeader header;
    header.pixels = valueAt<std::uint32_t>(file, pixelsPlace);
    header.palette = fileHeaderSize + size;
    if (size == coreHeaderSize) {
        header.width = valueAt<std::uint16_t>(file, 18);
        header.height = valueAt<std::uint16_t>(file, 20);
        header.bitsPerPixel = valueAt<std::uint16_t>(file, 24);
        header.bytesPerColor = 3;
    } else if (size >= infoHeaderSize && file.size() >= fileHeaderSize + infoHeaderSize) {
        const std::int64_t height = valueAt<std::int32_t>(file, 22);
        header.width = valueAt<std::int32_t>(file, 18);
        header.height = std::abs(height);
        header.isTopDown = height < 0;
        header.bitsPerPixel = valueAt<std::uint16_t>(file, 28);
        header.compression = valueAt<std::uint32_t>(file, 30);
        header.colors = valueAt<std::uint32_t>(file, 46);
        header.palette += size == infoHeaderSize && header.compression == bitFields ? 12 : 0;
    } else {
        return std::nullopt;
    }
    if (header.bitsPerPixel > mostPaletteBits) {
        // Only advice for displays of few colors.
        header.colors = 0;
    } else if (header.colors == 0) {
        header.colors = std::int64_t{1} << header.bitsPerPixel;
    }
    return header;
}

bool isBareBmp(const QByteArray& bytes) {
    constexpr std::array<std::uint32_t, 6> sizes{12, 40, 52, 56, 108, 124};
    constexpr std::array<std::uint16_t, 6> depths{1, 4, 8, 16, 24, 32};
    if (bytes.size() < coreHeaderSize) {
        return false;
    }
    const auto size = valueAt<std::uint32_t>(bytes, 0);
    const qsizetype planes = size == coreHeaderSize ? 8 : 12;
    return std::find(sizes.begin(), sizes.end(), size) != sizes.end() && bytes.size() >= planes + 4 &&
           valueAt<std::uint16_t>(bytes, planes) == 1 &&
           std::find(depths.begin(), depths.end(), valueAt<std::uint16_t>(bytes, planes + 2)) != depths.end();
}

QByteArray completedBmp(const QByteArray& bytes) {
    return isBareBmp(bytes) ? withFileHeader(bytes) : withWholePalette(bytes);
}

}  // namespace quarlin

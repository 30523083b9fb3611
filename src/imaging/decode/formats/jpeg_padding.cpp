#include "imaging/decode/formats/jpeg_padding.h"

#include <QtEndian>

#include <algorithm>
#include <cstdint>

namespace quarlin {

namespace {

constexpr std::uint8_t markerPrefix = 0xff;
constexpr std::uint8_t startOfImage = 0xd8;
constexpr std::uint8_t endOfImage = 0xd9;
constexpr std::uint8_t startOfScan = 0xda;

std::uint8_t byteAt(const QByteArray& bytes, qsizetype position) {
    return static_cast<std::uint8_t>(bytes[position]);
}

/// Whether a marker of a segment starts at `position`: neither a stuffed byte of a scan nor a restart in it.
bool isMarker(const QByteArray& bytes, qsizetype position) {
    constexpr std::uint8_t firstRestart = 0xd0;
    if (position + 1 >= bytes.size() || byteAt(bytes, position) != markerPrefix) {
        return false;
    }
    const std::uint8_t code = byteAt(bytes, position + 1);
    return code >= startOfImage ? code != markerPrefix : code > 0 && code < firstRestart;
}

/// The first marker at or after `position`; the end of the bytes if there is none.
qsizetype nextMarker(const QByteArray& bytes, qsizetype position) {
    constexpr auto prefix = static_cast<char>(markerPrefix);
    position = bytes.indexOf(prefix, position);
    while (position >= 0 && !isMarker(bytes, position)) {
        position = bytes.indexOf(prefix, position + 1);
    }
    return position >= 0 ? position : bytes.size();
}

/// `scan` without the zeros at its end. A zero after 0xff is part of a code.
QByteArrayView withoutZeros(QByteArrayView scan) {
    qsizetype length = scan.size();
    while (length > 0 && scan[length - 1] == '\0') {
        --length;
    }
    const bool endsInPrefix = length > 0 && scan[length - 1] == static_cast<char>(markerPrefix);
    return scan.first(endsInPrefix ? std::min(scan.size(), length + 1) : length);
}

}  // namespace

JpegParts jpegParts(const QByteArray& bytes) {
    constexpr qsizetype markerSize = 2;
    constexpr qsizetype lengthSize = 2;
    if (!isMarker(bytes, 0) || byteAt(bytes, 1) != startOfImage) {
        return {bytes, bytes};
    }
    const QByteArrayView all(bytes);
    JpegParts parts{bytes.first(markerSize), bytes.first(markerSize)};
    const auto add = [&](QByteArrayView segment) {
        parts.clean += segment;
        parts.withoutZeros += segment;
    };
    qsizetype position = markerSize;
    while (position < bytes.size()) {
        const qsizetype marker = nextMarker(bytes, position);
        if (marker + markerSize + lengthSize > bytes.size() || byteAt(bytes, marker + 1) == endOfImage) {
            add(all.sliced(marker));
            break;
        }
        const qsizetype end =
            marker + markerSize + qFromBigEndian<std::uint16_t>(bytes.constData() + marker + markerSize);
        if (end > bytes.size()) {
            add(all.sliced(marker));
            break;
        }
        add(all.sliced(marker, end - marker));
        position = end;
        if (byteAt(bytes, marker + 1) == startOfScan) {
            position = nextMarker(bytes, end);
            const QByteArrayView scan = all.sliced(end, position - end);
            parts.clean += scan;
            parts.withoutZeros += withoutZeros(scan);
        }
    }
    return parts;
}

}  // namespace quarlin

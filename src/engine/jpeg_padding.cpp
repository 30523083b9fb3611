#include "jpeg_padding.h"

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

/// The first marker at or behind `position`; the end of the bytes when there is none.
qsizetype nextMarker(const QByteArray& bytes, qsizetype position) {
    constexpr auto prefix = static_cast<char>(markerPrefix);
    position = bytes.indexOf(prefix, position);
    while (position >= 0 && !isMarker(bytes, position)) {
        position = bytes.indexOf(prefix, position + 1);
    }
    return position >= 0 ? position : bytes.size();
}

/// The length of `scan` without the zeros at its end, but for as many as its samples may end in themselves:
/// the last bits are filled up with ones, so that one zero is rare and two hardly ever seen.
qsizetype lengthWithoutZeros(QByteArrayView scan) {
    constexpr qsizetype ownZeros = 2;
    qsizetype length = scan.size();
    while (length > 0 && scan[length - 1] == '\0') {
        --length;
    }
    return std::min(scan.size(), length + ownZeros);
}

}  // namespace

std::optional<QByteArray> withoutJpegPadding(const QByteArray& bytes) {
    constexpr qsizetype markerSize = 2;
    if (!isMarker(bytes, 0) || byteAt(bytes, 1) != startOfImage) {
        return std::nullopt;
    }
    QByteArray clean = bytes.first(markerSize);
    qsizetype position = markerSize;
    bool hasPadding = false;
    while (position < bytes.size()) {
        const qsizetype marker = nextMarker(bytes, position);
        hasPadding = hasPadding || marker > position;
        if (marker + 2 * markerSize > bytes.size()) {
            clean += QByteArrayView(bytes).sliced(marker);
            break;
        }
        const std::uint8_t code = byteAt(bytes, marker + 1);
        if (code == endOfImage) {
            clean += QByteArrayView(bytes).sliced(marker);
            break;
        }
        const qsizetype end =
            marker + markerSize + qFromBigEndian<std::uint16_t>(bytes.constData() + marker + markerSize);
        position = code == startOfScan ? nextMarker(bytes, end) : end;
        if (position > bytes.size()) {
            return std::nullopt;
        }
        clean += QByteArrayView(bytes).sliced(marker, end - marker);
        const QByteArrayView scan = QByteArrayView(bytes).sliced(end, position - end);
        const qsizetype scanLength = lengthWithoutZeros(scan);
        hasPadding = hasPadding || scanLength < scan.size();
        clean += scan.first(scanLength);
    }
    return hasPadding ? std::optional(clean) : std::nullopt;
}

}  // namespace quarlin

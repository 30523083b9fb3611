#include "imaging/decode/formats/jpeg_padding.h"

#include <algorithm>
#include <cstdint>

namespace quarlin {

namespace {

constexpr std::uint8_t markerPrefix = 0xff;
constexpr std::uint8_t startOfImage = 0xd8;
constexpr std::uint8_t endOfImage = 0xd9;
constexpr std::uint8_t startOfScan = 0xda;

/// Whether a marker of a segment starts at `position`: neither a stuffed byte of a scan nor a restart in it.
bool isMarker(ByteFinder& bytes, std::int64_t position) {
    constexpr std::uint8_t firstRestart = 0xd0;
    if (position + 1 >= bytes.size() || bytes.at(position) != markerPrefix) {
        return false;
    }
    const std::uint8_t code = bytes.at(position + 1);
    return code >= startOfImage ? code != markerPrefix : code > 0 && code < firstRestart;
}

/// The first marker at or after `position`; the end of the bytes if there is none.
std::int64_t nextMarker(ByteFinder& bytes, std::int64_t position) {
    position = bytes.find(markerPrefix, position);
    while (position >= 0 && !isMarker(bytes, position)) {
        position = bytes.find(markerPrefix, position + 1);
    }
    return position >= 0 ? position : bytes.size();
}

/// `scan` without the zeros at its end. A zero after 0xff is part of a code.
ByteRange withoutZeros(ByteFinder& bytes, ByteRange scan) {
    std::int64_t length = scan.count;
    while (length > 0 && bytes.at(scan.offset + length - 1) == 0) {
        --length;
    }
    const bool endsInPrefix = length > 0 && bytes.at(scan.offset + length - 1) == markerPrefix;
    return {scan.offset, endsInPrefix ? std::min(scan.count, length + 1) : length};
}

/// Adds a range after the others. Ranges that meet become one, so that equal bytes are equal ranges.
void append(std::vector<ByteRange>& ranges, ByteRange range) {
    if (!ranges.empty() && ranges.back().offset + ranges.back().count == range.offset) {
        ranges.back().count += range.count;
    } else if (range.count > 0) {
        ranges.push_back(range);
    }
}

}  // namespace

JpegParts jpegParts(ByteSource& source) {
    constexpr std::int64_t markerSize = 2;
    constexpr std::int64_t lengthSize = 2;
    ByteFinder bytes(source);
    const std::int64_t size = bytes.size();
    if (!isMarker(bytes, 0) || bytes.at(1) != startOfImage) {
        return {{{0, size}}, {{0, size}}};
    }
    JpegParts parts;
    const auto add = [&](ByteRange segment) {
        append(parts.clean, segment);
        append(parts.withoutZeros, segment);
    };
    add({0, markerSize});
    std::int64_t position = markerSize;
    while (position < size) {
        const std::int64_t marker = nextMarker(bytes, position);
        if (marker + markerSize + lengthSize > size || bytes.at(marker + 1) == endOfImage) {
            add({marker, size - marker});
            break;
        }
        const int length = bytes.at(marker + markerSize) << 8 | bytes.at(marker + markerSize + 1);
        const std::int64_t end = marker + markerSize + length;
        if (end > size) {
            add({marker, size - marker});
            break;
        }
        add({marker, end - marker});
        position = end;
        if (bytes.at(marker + 1) == startOfScan) {
            position = nextMarker(bytes, end);
            const ByteRange scan{end, position - end};
            append(parts.clean, scan);
            append(parts.withoutZeros, withoutZeros(bytes, scan));
        }
    }
    return parts;
}

}  // namespace quarlin
